#pragma once

#include "core/PropertyList.h"
#include "core/Rect.h"

#import <Foundation/NSGeometry.h>

#include <optional>
#include <string>
#include <string_view>

@class NSString;

/// The only place where Cocoa's values become the core's, and back.
namespace vistrel::cocoa {

/// `text` as a string; bytes that are no UTF-8 give the empty string.
NSString* toNSString(std::string_view text);

/// `text` in UTF-8; nil is empty.
std::string toString(NSString* text);

NSRect toNSRect(const Rect& rect);
Rect toRect(NSRect rect);

/// Whoever needs more levels means harm: each takes its part of the host's stack.
inline constexpr int deepestPropertyList = 200;

/// Any property-list object. nullopt for nil, for objects that no property list can hold, wherever
/// they are nested, and for what is nested deeper than that.
std::optional<PropertyList> toPropertyList(id object);

/// The property-list object of the same type and value, autoreleased.
id toObject(const PropertyList& value);

} // namespace vistrel::cocoa
