#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vistrel {

class PropertyList;

/// The elements of a property-list array.
using Array = std::vector<PropertyList>;

/// The bytes of a property-list data value.
using Data = std::vector<std::byte>;

/// A property-list date, in seconds since 2001-01-01 00:00:00 UTC (NSDate's reference date).
struct Date {
    double secondsSinceReferenceDate = 0;

    friend bool operator==(const Date&, const Date&) = default;
};

/// A property-list dictionary. Keys are unique; entries keep the order in which their keys were
/// first set. Two dictionaries are equal when they hold the same keys with equal values, in any
/// order.
class Dictionary {
  public:
    using Entry = std::pair<std::string, PropertyList>;

    Dictionary();
    Dictionary(std::initializer_list<Entry> entries);
    Dictionary(const Dictionary&);
    Dictionary(Dictionary&&) noexcept;
    Dictionary& operator=(const Dictionary&);
    Dictionary& operator=(Dictionary&&) noexcept;
    ~Dictionary();

    /// The value of `key`, or nullptr when the dictionary does not hold it. Valid until the next
    /// change of the dictionary.
    [[nodiscard]] const PropertyList* find(std::string_view key) const;

    /// Adds `key`, or replaces its value.
    void set(std::string_view key, PropertyList value);

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }

    friend bool operator==(const Dictionary& a, const Dictionary& b);

  private:
    std::vector<Entry> entries_;
    std::map<std::string, std::size_t, std::less<>> positions_;
};

/// Any value that a property list can hold, with its exact type: what the settings file brings
/// along is written back as it came, also where nobody here knows the key.
///
/// Integers beyond the signed 64-bit range (up to 2^64 - 1) are std::uint64_t; all others are
/// std::int64_t.
class PropertyList : public std::variant<bool, std::int64_t, std::uint64_t, double, std::string,
                                         Date, Data, Array, Dictionary> {
  public:
    using variant::variant;
};

inline Dictionary::Dictionary() = default;
inline Dictionary::Dictionary(const Dictionary&) = default;
inline Dictionary::Dictionary(Dictionary&&) noexcept = default;
inline Dictionary& Dictionary::operator=(const Dictionary&) = default;
inline Dictionary& Dictionary::operator=(Dictionary&&) noexcept = default;
inline Dictionary::~Dictionary() = default;

/// The value as a 32-bit integer, as AppKit's -intValue answers it. An integer keeps its low 32
/// bits; a real loses its fraction; a text is read up to the first character that is no decimal
/// digit (after white space and a sign). A real or a text outside the range becomes the nearest
/// limit. nullptr and values that are neither number nor text are 0.
std::int32_t intValue(const PropertyList* value);

/// The same with 64 bits (AppKit's -integerValue).
std::int64_t integerValue(const PropertyList* value);

/// The value as a boolean, as AppKit's -boolValue documents it: a number is true unless zero; a
/// text is true when it begins, after white space, a sign and zeroes, with one of "YyTt" or a digit
/// from 1 to 9. nullptr and values that are neither number nor text are false.
bool boolValue(const PropertyList* value);

} // namespace vistrel
