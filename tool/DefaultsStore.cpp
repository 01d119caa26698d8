#include "tool/DefaultsStore.h"

#include <algorithm>

namespace vistrel::tool {

namespace {

std::optional<PropertyList> valueOf(const Dictionary& domain, std::string_view key) {
    const auto* value = domain.find(key);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::string whatStands(std::size_t domains) {
    if (domains == 0)
        return " Nothing has been changed.";
    return " Before that, the defaults of " + std::to_string(domains) +
           (domains == 1 ? " domain" : " domains") +
           " had been changed. Run the command again when this is mended.";
}

} // namespace

LoadingDefaults loadingDefaults(const StoredDefaults& stored) {
    LoadingDefaults defaults{.unreadable = stored.unreadable,
                             .systemBundles = stored.systemBundles};
    for (const auto& [name, values] : stored.domains)
        defaults.domains[name] = {.bundles = valueOf(values, bundlesKey),
                                  .enabled = valueOf(values, enabledKey)};
    return defaults;
}

std::optional<std::string> apply(const std::vector<Change>& changes, DefaultsStore& store) {
    if (changes.empty())
        return std::nullopt;
    if (auto reason = store.whyReadOnly())
        return *reason + whatStands(0);
    std::size_t domains = 0;
    for (auto first = changes.begin(); first != changes.end(); ++domains) {
        const auto& domain = first->domain;
        const auto end = std::find_if(first, changes.end(), [&domain](const Change& change) {
            return change.domain != domain;
        });
        if (auto reason = store.write(domain, {first, end}))
            return *reason + whatStands(domains);
        first = end;
    }
    return std::nullopt;
}

} // namespace vistrel::tool
