#import "platform/cocoa/Convert.h"
#include "tool/UserDefaultsStore.h"

#import <Foundation/NSArray.h>
#import <Foundation/NSAutoreleasePool.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSData.h>
#import <Foundation/NSException.h>
#import <Foundation/NSFileManager.h>
#import <Foundation/NSPathUtilities.h>
#import <Foundation/NSPropertyList.h>
#import <Foundation/NSString.h>
#import <Foundation/NSUserDefaults.h>

#include <algorithm>
#include <unistd.h>

namespace vistrel::tool {

namespace {

using cocoa::toNSString;
using cocoa::toPropertyList;
using cocoa::toString;

/// Releases what Foundation makes on the way.
class Pool {
  public:
    Pool() : pool_([NSAutoreleasePool new]) {}

    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    Pool(Pool&&) = delete;
    Pool& operator=(Pool&&) = delete;

    ~Pool() { [pool_ release]; }

  private:
    NSAutoreleasePool* pool_;
};

std::vector<std::string> toStrings(NSArray* texts) {
    std::vector<std::string> strings;
    for (NSUInteger index = 0; index < [texts count]; ++index)
        strings.push_back(toString([texts objectAtIndex:index]));
    return strings;
}

/// Of all the user's and the system's, in the order in which they are searched.
std::vector<std::string> foldersFor(NSSearchPathDirectory directory) {
    std::vector<std::string> folders;
    for (auto& path :
         toStrings(NSSearchPathForDirectoriesInDomains(directory, NSAllDomainsMask, YES)))
        if (std::ranges::count(folders, path) == 0)
            folders.push_back(std::move(path));
    return folders;
}

NSString* folder() {
    return GSDefaultsRootForUser(NSUserName());
}

NSString* fileOf(NSString* domain) {
    return
        [[folder() stringByAppendingPathComponent:domain] stringByAppendingPathExtension:@"plist"];
}

/// What the platform would make of a file, or why it would make nothing of it and write an empty
/// domain over it.
struct FileContent {
    std::optional<Dictionary> values;
    std::string problem;
};

FileContent contentOf(NSString* path) {
    NSData* data = [NSData dataWithContentsOfFile:path];
    if (data == nil)
        return {.problem = toString(path) + " cannot be read."};
    id root = nil;
    @try {
        root = [NSPropertyListSerialization propertyListWithData:data
                                                         options:NSPropertyListImmutable
                                                          format:nullptr
                                                           error:nullptr];
    } @catch (NSException* exception) {
        root = nil;
    }
    if ([root isKindOfClass:[NSDictionary class]] == NO)
        return {.problem = toString(path) + " is damaged."};
    auto values = toPropertyList(root);
    if (!values)
        return {.problem = toString(path) + " holds what no property list can hold."};
    return {.values = std::get<Dictionary>(std::move(*values))};
}

Array systemBundles() {
    auto bundles = toPropertyList([GNUstepConfig(nil) objectForKey:toNSString(bundlesKey)]);
    auto* list = bundles ? std::get_if<Array>(&*bundles) : nullptr;
    return list != nullptr ? std::move(*list) : Array{};
}

/// Whether `path`, or what it will be made in, can be written.
bool isWritable(NSString* path) {
    NSFileManager* files = [NSFileManager defaultManager];
    while ([files fileExistsAtPath:path] == NO && [path length] > 1)
        path = [path stringByDeletingLastPathComponent];
    BOOL isFolder = NO;
    return [files fileExistsAtPath:path isDirectory:&isFolder] != NO && isFolder != NO &&
           ::access([path fileSystemRepresentation], W_OK | X_OK) == 0;
}

class UserDefaultsStore : public DefaultsStore {
  public:
    [[nodiscard]] StoredDefaults read() const override {
        const Pool pool;
        StoredDefaults stored{.systemBundles = systemBundles()};
        NSArray* names = [[NSFileManager defaultManager] directoryContentsAtPath:folder()];
        for (const auto& name : toStrings([names pathsMatchingExtensions:@[ @"plist" ]])) {
            const auto domain = toString([toNSString(name) stringByDeletingPathExtension]);
            auto content = contentOf(fileOf(toNSString(domain)));
            if (content.values)
                stored.domains[domain] = std::move(*content.values);
            else
                stored.unreadable[domain] = content.problem;
        }
        return stored;
    }

    /// The platform would wait a minute for a lock that it cannot have.
    [[nodiscard]] std::optional<std::string> whyReadOnly() const override {
        const Pool pool;
        if (isWritable(folder()) && isWritable([folder() stringByAppendingPathComponent:@".lck"]))
            return std::nullopt;
        return "The folder " + toString(folder()) + " cannot be written.";
    }

    std::optional<std::string> write(const std::string& domain,
                                     const std::vector<Change>& changes) override {
        const Pool pool;
        @try {
            change(toNSString(domain), changes);
        } @catch (NSException* exception) {
            return "The defaults of " + domain +
                   " could not be written: " + toString([exception reason]) + ".";
        }
        return whyNotWritten(domain, changes);
    }

  private:
    /// Under the platform's own lock, and merged with what others have changed meanwhile.
    static void change(NSString* domain, const std::vector<Change>& changes) {
        NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
        NSMutableDictionary* values = [NSMutableDictionary dictionary];
        // Asked for also because the platform reads a domain at the first question only, and
        // takes nothing out of one that it has not read.
        [values addEntriesFromDictionary:[defaults persistentDomainForName:domain]];
        for (const auto& change : changes) {
            if (change.after)
                [values setObject:cocoa::toObject(*change.after) forKey:toNSString(change.key)];
            else
                [values removeObjectForKey:toNSString(change.key)];
        }
        [defaults setPersistentDomain:values forName:domain];
        [defaults synchronize];
    }

    /// The platform does not tell whether it could write: what counts is what the file holds now.
    static std::optional<std::string> whyNotWritten(const std::string& domain,
                                                    const std::vector<Change>& changes) {
        NSString* path = fileOf(toNSString(domain));
        Dictionary values;
        if ([[NSFileManager defaultManager] fileExistsAtPath:path] != NO) {
            auto content = contentOf(path);
            if (!content.values)
                return content.problem;
            values = std::move(*content.values);
        }
        const bool written = std::ranges::all_of(changes, [&values](const Change& change) {
            const auto* value = values.find(change.key);
            return change.after ? value != nullptr && *value == *change.after : value == nullptr;
        });
        if (written)
            return std::nullopt;
        return toString(path) + " could not be written; it is as it was.";
    }
};

} // namespace

std::unique_ptr<DefaultsStore> userDefaults() {
    return std::make_unique<UserDefaultsStore>();
}

std::string defaultsFolder() {
    const Pool pool;
    return toString(folder());
}

std::string homeFolder() {
    const Pool pool;
    return toString(NSHomeDirectory());
}

std::vector<std::string> applicationFolders() {
    const Pool pool;
    return foldersFor(NSApplicationDirectory);
}

std::vector<Component> backEnds() {
    const Pool pool;
    std::vector<Component> found;
    for (const auto& library : foldersFor(NSLibraryDirectory)) {
        NSString* bundles = toNSString(library + "/Bundles");
        NSArray* names = [[NSFileManager defaultManager] directoryContentsAtPath:bundles];
        for (const auto& name : toStrings([names sortedArrayUsingSelector:@selector(compare:)])) {
            NSString* path = [bundles stringByAppendingPathComponent:toNSString(name)];
            NSDictionary* information = [[NSBundle bundleWithPath:path] infoDictionary];
            if ([[information objectForKey:@"NSPrincipalClass"] isEqual:@"GSBackend"] != NO) {
                found.push_back(
                    {toString([[path lastPathComponent] stringByDeletingPathExtension]),
                     toString([information objectForKey:@"GSBundleShortVersionString"])});
            }
        }
    }
    return found;
}

} // namespace vistrel::tool
