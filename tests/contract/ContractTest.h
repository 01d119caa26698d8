#pragma once

#include "ContractHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vistrel {

/// Every test here holds on every platform.
class ContractTest : public testing::Test {
  protected:
    [[nodiscard]] Application& application() { return host->platform().application(); }

    [[nodiscard]] UserDefaults& defaults() { return host->platform().userDefaults(); }

    [[nodiscard]] FileManager& files() { return host->platform().fileManager(); }

    std::unique_ptr<ContractHost> host = ContractHost::make();
};

} // namespace vistrel
