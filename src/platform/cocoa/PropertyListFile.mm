#import "platform/cocoa/PropertyListFile.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/PosixFile.h"
#import "platform/cocoa/PropertyListGuard.h"

namespace vistrel::cocoa {

namespace {

constexpr std::size_t largestFile = 1U << 20U;

NSData* toData(const std::string& bytes) {
    return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

std::optional<PropertyList> parse(const std::string& text) {
    if (!isParsable(text))
        return std::nullopt;
    return toPropertyList([NSPropertyListSerialization propertyListWithData:toData(text)
                                                                    options:NSPropertyListImmutable
                                                                     format:NULL
                                                                      error:NULL]);
}

} // namespace

std::optional<Dictionary> readPropertyListFile(const std::string& path) {
    const auto text = posix::readRegularFile(path, largestFile);
    auto root = text ? parse(*text) : std::nullopt;
    auto* dictionary = root ? std::get_if<Dictionary>(&*root) : nullptr;
    return dictionary != nullptr ? std::optional(std::move(*dictionary)) : std::nullopt;
}

void writePropertyListFile(const Dictionary& dictionary, const std::string& path) {
    NSData* data = [NSPropertyListSerialization dataWithPropertyList:toObject(dictionary)
                                                              format:NSPropertyListXMLFormat_v1_0
                                                             options:0
                                                               error:NULL];
    if (data != nil)
        posix::replaceFile(path, {static_cast<const char*>([data bytes]),
                                  static_cast<std::size_t>([data length])});
}

} // namespace vistrel::cocoa
