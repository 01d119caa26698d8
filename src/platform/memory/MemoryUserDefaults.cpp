#include "platform/memory/MemoryUserDefaults.h"

namespace vistrel::memory {

std::int64_t MemoryUserDefaults::integerForKey(std::string_view key) const {
    log_.record("integerForKey ", key);
    return integerValue(values.find(key));
}

bool MemoryUserDefaults::boolForKey(std::string_view key) const {
    log_.record("boolForKey ", key);
    return boolValue(values.find(key));
}

std::optional<PropertyList> MemoryUserDefaults::objectForKey(std::string_view key) const {
    log_.record("objectForKey ", key);
    const auto* value = values.find(key);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

void MemoryUserDefaults::setInteger(std::int64_t value, std::string_view key) {
    log_.record("setInteger ", value, " ", key);
    values.set(key, value);
}

void MemoryUserDefaults::setBool(bool value, std::string_view key) {
    log_.record("setBool ", value, " ", key);
    values.set(key, value);
}

void MemoryUserDefaults::setObject(const PropertyList& value, std::string_view key) {
    log_.record("setObject ", key);
    values.set(key, value);
}

} // namespace vistrel::memory
