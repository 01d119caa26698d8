// The user's defaults and the registered classes of the process.
#import "Probe.h"

#include <algorithm>
#include <objc/runtime.h>
#include <string_view>
#include <vector>

namespace {

// The value goes out as an XML property list: JSON has no data, no dates, and
// no difference between a whole number and a boolean that a reader keeps.
id asXML(id value) {
    if (!value)
        return [NSNull null];
    NSData* data = [NSPropertyListSerialization dataWithPropertyList:value
                                                              format:NSPropertyListXMLFormat_v1_0
                                                             options:0
                                                               error:NULL];
    NSString* text = [[NSString alloc] initWithData:data encoding:NSUTF8StringEncoding];
    return probe::orNull([text autorelease]);
}

id encodingOf(id value) {
    if (![value isKindOfClass:[NSValue class]])
        return [NSNull null];
    return [NSString stringWithUTF8String:[value objCType]];
}

id targetIn(NSMenu* menu, Class wanted) {
    for (NSInteger index = 0; index < [menu numberOfItems]; ++index) {
        id<NSMenuItem> item = [menu itemAtIndex:index];
        id target = [item hasSubmenu] ? targetIn([item submenu], wanted) : [item target];
        if (target && [target isKindOfClass:wanted])
            return target;
    }
    return nil;
}

} // namespace

namespace probe {

NSDictionary* userDefault(NSString* key) {
    id value = [[NSUserDefaults standardUserDefaults] objectForKey:key];
    return @{
        @"present" : @(value != nil),
        @"class" : orNull(value ? NSStringFromClass([value class]) : nil),
        @"objCType" : encodingOf(value),
        @"xml" : asXML(value),
    };
}

NSDictionary* classes(NSString* prefix) {
    int count = objc_getClassList(nullptr, 0);
    std::vector<Class> all(static_cast<size_t>(count));
    count = std::min(count, objc_getClassList(all.data(), count));
    all.resize(static_cast<size_t>(count));
    const std::string_view wanted = [prefix UTF8String];
    NSMutableArray* names = [NSMutableArray array];
    for (Class each : all) {
        const std::string_view name = class_getName(each);
        if (name.starts_with(wanted))
            [names addObject:NSStringFromClass(each)];
    }
    [names sortUsingSelector:@selector(compare:)];
    return @{@"classes" : names};
}

NSDictionary* perform(NSString* argument) {
    NSArray* words = [argument componentsSeparatedByString:@" "];
    id target = targetIn([NSApp mainMenu], NSClassFromString([words objectAtIndex:0]));
    SEL action = NSSelectorFromString([words lastObject]);
    if (![target respondsToSelector:action])
        return @{@"error" : [@"nobody performs " stringByAppendingString:argument]};
    [target performSelector:action withObject:nil afterDelay:0];
    return @{@"performing" : flag(YES)};
}

} // namespace probe
