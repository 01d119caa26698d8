#import "platform/cocoa/Convert.h"

#import "platform/cocoa/Number.h"

#import <Foundation/NSArray.h>
#import <Foundation/NSData.h>
#import <Foundation/NSDate.h>
#import <Foundation/NSDictionary.h>
#import <Foundation/NSEnumerator.h>
#import <Foundation/NSException.h>
#import <Foundation/NSString.h>
#import <Foundation/NSValue.h>

#include <limits>

namespace vistrel::cocoa {

namespace {

std::optional<PropertyList> fromNumber(NSNumber* number) {
    if (native::isBoolean(number))
        return [number boolValue] != NO;
    switch (*[number objCType]) {
    case 'f':
    case 'd':
        return [number doubleValue];
    case 'Q':
    case 'L':
        if ([number unsignedLongLongValue] > std::numeric_limits<std::int64_t>::max())
            return std::uint64_t{[number unsignedLongLongValue]};
        [[fallthrough]];
    default:
        return std::int64_t{[number longLongValue]};
    }
}

std::optional<PropertyList> fromObject(id object, int depth);

std::optional<PropertyList> fromArray(NSArray* objects, int depth) {
    Array array;
    for (NSUInteger index = 0; index < [objects count]; ++index) {
        auto value = fromObject([objects objectAtIndex:index], depth);
        if (!value)
            return std::nullopt;
        array.push_back(std::move(*value));
    }
    return array;
}

std::optional<PropertyList> fromDictionary(NSDictionary* objects, int depth) {
    Dictionary dictionary;
    NSEnumerator* keys = [objects keyEnumerator];
    while (id key = [keys nextObject]) {
        auto value = fromObject([objects objectForKey:key], depth);
        if (!value || ![key isKindOfClass:[NSString class]])
            return std::nullopt;
        dictionary.set(toString(key), std::move(*value));
    }
    return dictionary;
}

PropertyList fromData(NSData* bytes) {
    const auto* first = static_cast<const std::byte*>([bytes bytes]);
    return Data(first, first + [bytes length]);
}

std::optional<PropertyList> fromObject(id object, int depth) {
    if (depth == 0)
        return std::nullopt;
    if ([object isKindOfClass:[NSString class]])
        return PropertyList(toString(object));
    if ([object isKindOfClass:[NSNumber class]])
        return fromNumber(object);
    if ([object isKindOfClass:[NSDictionary class]])
        return fromDictionary(object, depth - 1);
    if ([object isKindOfClass:[NSArray class]])
        return fromArray(object, depth - 1);
    if ([object isKindOfClass:[NSData class]])
        return fromData(object);
    if ([object isKindOfClass:[NSDate class]])
        return Date{[object timeIntervalSinceReferenceDate]};
    return std::nullopt;
}

struct ToObject {
    id operator()(bool value) const { return [NSNumber numberWithBool:value ? YES : NO]; }

    id operator()(std::int64_t value) const { return [NSNumber numberWithLongLong:value]; }

    id operator()(std::uint64_t value) const { return [NSNumber numberWithUnsignedLongLong:value]; }

    id operator()(double value) const { return [NSNumber numberWithDouble:value]; }

    id operator()(const std::string& value) const { return toNSString(value); }

    id operator()(const Date& value) const {
        return [NSDate dateWithTimeIntervalSinceReferenceDate:value.secondsSinceReferenceDate];
    }

    id operator()(const Data& value) const {
        return [NSData dataWithBytes:value.data() length:value.size()];
    }

    id operator()(const Array& value) const {
        NSMutableArray* objects = [NSMutableArray arrayWithCapacity:value.size()];
        for (const auto& element : value)
            [objects addObject:toObject(element)];
        return objects;
    }

    id operator()(const Dictionary& value) const {
        NSMutableDictionary* objects =
            [NSMutableDictionary dictionaryWithCapacity:value.entries().size()];
        for (const auto& [key, element] : value.entries())
            [objects setObject:toObject(element) forKey:toNSString(key)];
        return objects;
    }
};

} // namespace

NSString* toNSString(std::string_view text) {
    NSString* string = [[[NSString alloc] initWithBytes:text.data()
                                                 length:text.size()
                                               encoding:NSUTF8StringEncoding] autorelease];
    return string != nil ? string : @"";
}

std::string toString(NSString* text) {
    NSData* bytes = [text dataUsingEncoding:NSUTF8StringEncoding];
    return {static_cast<const char*>([bytes bytes]), static_cast<std::size_t>([bytes length])};
}

NSRect toNSRect(const Rect& rect) {
    return NSMakeRect(rect.x, rect.y, rect.width, rect.height);
}

Rect toRect(NSRect rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

std::optional<PropertyList> toPropertyList(id object) {
    return fromObject(object, deepestPropertyList);
}

id toObject(const PropertyList& value) {
    return std::visit(ToObject{}, value);
}

} // namespace vistrel::cocoa
