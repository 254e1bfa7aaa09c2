#include "core/StartUp.h"
#include "platform/Application.h"

int main(int argc, char** argv) { return RunApplication(argc, argv, Main); }
