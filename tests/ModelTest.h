#pragma once

#include "core/SharedState.h"
#include "tests/ModelDoubles.h"
#include "tests/Support.h"

/// A test of the model, with its doubles as fresh as the rest.
class ModelTest : public FreshTest {
protected:
    void SetUp() override {
        FreshTest::SetUp();
        doubles = {};
    }
};
