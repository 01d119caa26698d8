#include "tool/Json.h"

#include "platform/posix/Base64.h"
#include "platform/posix/DateText.h"

#include <iostream>

namespace vistrel::tool {

namespace {

struct Converted {
    Json operator()(bool value) const { return value; }

    Json operator()(std::int64_t value) const { return value; }

    Json operator()(std::uint64_t value) const { return value; }

    Json operator()(double value) const { return value; }

    Json operator()(const std::string& value) const { return value; }

    Json operator()(const Date& value) const { return posix::textFromDate(value); }

    Json operator()(const Data& value) const { return posix::base64FromData(value); }

    Json operator()(const Array& values) const {
        auto array = Json::array();
        for (const auto& value : values)
            array.push_back(toJson(value));
        return array;
    }

    Json operator()(const Dictionary& values) const {
        auto object = Json::object();
        for (const auto& [key, value] : values.entries())
            object[key] = toJson(value);
        return object;
    }
};

} // namespace

Json toJson(const PropertyList& value) {
    return std::visit(Converted{}, value);
}

void print(const Json& report) {
    std::cout << report.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace vistrel::tool
