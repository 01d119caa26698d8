#import "platform/cocoa/CocoaFileManager.h"

#import "platform/cocoa/Convert.h"
#include "platform/posix/PropertyListFile.h"

#import <Foundation/NSFileManager.h>

namespace vistrel::cocoa {

std::string CocoaFileManager::expandTilde(std::string_view path) const {
    return toString([toNSString(path) stringByExpandingTildeInPath]);
}

bool CocoaFileManager::fileExists(const std::string& path) const {
    return [[NSFileManager defaultManager] fileExistsAtPath:toNSString(path)] != NO;
}

void CocoaFileManager::createDirectory(const std::string& path) {
    [[NSFileManager defaultManager] createDirectoryAtPath:toNSString(path)
                              withIntermediateDirectories:YES
                                               attributes:nil
                                                    error:NULL];
}

std::optional<Dictionary> CocoaFileManager::readDictionary(const std::string& path) const {
    return posix::readPropertyListFile(path);
}

void CocoaFileManager::writeDictionary(const Dictionary& dictionary, const std::string& path) {
    posix::writePropertyListFile(dictionary, path);
}

} // namespace vistrel::cocoa
