#include "core/SharedState.h"
#include "core/StartUp.h"
#include "platform/Application.h"
#include "platform/Files.h"

int main(int argc, char** argv) {
    ProgramFolder = FolderOfProgram();
    return RunApplication(argc, argv, Main);
}
