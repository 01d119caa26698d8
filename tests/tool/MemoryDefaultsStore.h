#pragma once

#include "tool/DefaultsStore.h"

namespace vistrel::tool {

/// Defaults in memory. Keeps no empty domain, as the platform keeps no empty file.
class MemoryDefaultsStore : public DefaultsStore {
  public:
    explicit MemoryDefaultsStore(StoredDefaults defaults = {}) : stored(std::move(defaults)) {}

    [[nodiscard]] StoredDefaults read() const override { return stored; }

    [[nodiscard]] std::optional<std::string> whyReadOnly() const override { return readOnly; }

    std::optional<std::string> write(const std::string& domain,
                                     const std::vector<Change>& changes) override {
        if (domain == failingDomain)
            return "The defaults of " + domain + " could not be written.";
        Dictionary values;
        for (const auto& [key, value] : stored.domains[domain].entries())
            if (!isOneOf(changes, key))
                values.set(key, value);
        for (const auto& change : changes)
            if (change.after)
                values.set(change.key, *change.after);
        if (values.entries().empty())
            stored.domains.erase(domain);
        else
            stored.domains[domain] = values;
        written.push_back(domain);
        return std::nullopt;
    }

    StoredDefaults stored;
    std::optional<std::string> readOnly;
    std::string failingDomain;
    std::vector<std::string> written;

  private:
    static bool isOneOf(const std::vector<Change>& changes, const std::string& key) {
        for (const auto& change : changes)
            if (change.key == key)
                return true;
        return false;
    }
};

} // namespace vistrel::tool
