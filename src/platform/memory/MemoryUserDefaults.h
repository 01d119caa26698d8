#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"

namespace vistrel::memory {

/// The defaults of one host.
class MemoryUserDefaults final : public UserDefaults {
  public:
    explicit MemoryUserDefaults(CallLog& log) : log_(log) {}

    [[nodiscard]] std::int64_t integerForKey(std::string_view key) const override;
    [[nodiscard]] bool boolForKey(std::string_view key) const override;
    [[nodiscard]] std::optional<PropertyList> objectForKey(std::string_view key) const override;
    void setInteger(std::int64_t value, std::string_view key) override;
    void setBool(bool value, std::string_view key) override;
    void setObject(const PropertyList& value, std::string_view key) override;

    /// What is stored. A test writes here what a user or another program would have stored.
    Dictionary values;

  private:
    CallLog& log_;
};

} // namespace vistrel::memory
