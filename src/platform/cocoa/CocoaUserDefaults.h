#pragma once

#include "platform/Platform.h"

namespace vistrel::cocoa {

/// The standard user defaults of the host.
class CocoaUserDefaults final : public UserDefaults {
  public:
    [[nodiscard]] std::int64_t integerForKey(std::string_view key) const override;
    [[nodiscard]] bool boolForKey(std::string_view key) const override;
    [[nodiscard]] std::optional<PropertyList> objectForKey(std::string_view key) const override;
    void setInteger(std::int64_t value, std::string_view key) override;
    void setBool(bool value, std::string_view key) override;
    void setObject(const PropertyList& value, std::string_view key) override;
};

} // namespace vistrel::cocoa
