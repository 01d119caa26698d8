#import "platform/cocoa/CocoaUserDefaults.h"

#import "platform/cocoa/Convert.h"

#import <Foundation/NSUserDefaults.h>

namespace vistrel::cocoa {

namespace {

NSUserDefaults* standard() {
    return [NSUserDefaults standardUserDefaults];
}

} // namespace

std::int64_t CocoaUserDefaults::integerForKey(std::string_view key) const {
    const auto value = objectForKey(key);
    return integerValue(value ? &*value : nullptr);
}

bool CocoaUserDefaults::boolForKey(std::string_view key) const {
    const auto value = objectForKey(key);
    return boolValue(value ? &*value : nullptr);
}

std::optional<PropertyList> CocoaUserDefaults::objectForKey(std::string_view key) const {
    return toPropertyList([standard() objectForKey:toNSString(key)]);
}

void CocoaUserDefaults::setInteger(std::int64_t value, std::string_view key) {
    [standard() setInteger:static_cast<NSInteger>(value) forKey:toNSString(key)];
}

void CocoaUserDefaults::setBool(bool value, std::string_view key) {
    [standard() setBool:value ? YES : NO forKey:toNSString(key)];
}

void CocoaUserDefaults::setObject(const PropertyList& value, std::string_view key) {
    [standard() setObject:toObject(value) forKey:toNSString(key)];
}

} // namespace vistrel::cocoa
