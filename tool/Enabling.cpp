#include "tool/Enabling.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace vistrel::tool {

namespace {

using Names = std::set<std::string, std::less<>>;

bool isSamePath(const std::string& a, const std::string& b) {
    return bundlePath(a) == bundlePath(b);
}

/// Works on a copy of the defaults; what differs in the end is what has to change.
class Planner {
  public:
    Planner(const LoadingDefaults& before, const Loader& loader)
        : before_(before), after_(before), loader_(loader) {}

    SwitchPlan plan(const SwitchRequest& request) {
        refuseWhatCannotBeChanged(request);
        if (result_.problems.empty())
            change(request);
        result_.after = after_;
        result_.changes = changes();
        return std::move(result_);
    }

  private:
    void refuseWhatCannotBeChanged(const SwitchRequest& request) {
        refuse(std::string(globalDomain));
        for (const auto& name : request.applications)
            refuse(name);
        if (!result_.problems.empty() || !request.applications.empty())
            return;
        for (const auto& [name, reason] : before_.unreadable)
            result_.remarks.push_back(leftAlone(name, reason));
    }

    static std::string leftAlone(const std::string& domain, const std::string& reason) {
        return "The defaults of " + domain + " are left as they are: " + reason;
    }

    void refuse(const std::string& domain) {
        const auto unreadable = before_.unreadable.find(domain);
        if (unreadable != before_.unreadable.end()) {
            result_.problems.push_back("The defaults of " + domain +
                                       " cannot be read: " + unreadable->second);
        } else if (hasOddList(domain)) {
            result_.problems.push_back(
                std::string(bundlesKey) + " in the defaults of " + domain +
                " is no list of bundles, so nothing can be added to it or taken out of it. Remove "
                "it with: defaults delete " +
                domain + " " + std::string(bundlesKey));
        }
    }

    [[nodiscard]] bool hasOddList(const std::string& domain) const {
        const auto bundles = valuesOf(before_, domain).bundles;
        return bundles && !std::holds_alternative<Array>(*bundles);
    }

    void change(const SwitchRequest& request) {
        if (request.to == Switch::on && request.applications.empty())
            enableAll();
        else if (request.to == Switch::on)
            enable(request.applications);
        else if (request.applications.empty())
            disableAll();
        else
            disable(request.applications);
    }

    void enableAll() {
        addToGlobalList();
        global().enabled.reset();
        for (auto& [name, values] : after_.domains) {
            if (name == globalDomain || isSwitchedOff(values))
                continue;
            values.enabled.reset();
            addToOwnList(values);
            if (hasOddList(name))
                result_.remarks.push_back(name + " does not load Vistrel: its own " +
                                          std::string(bundlesKey) + " is no list of bundles.");
        }
        const auto off = applicationsSwitchedOff(after_);
        if (!off.empty())
            result_.remarks.push_back("Still switched off by name: " + joined(off) + ".");
    }

    void enable(const std::vector<std::string>& applications) {
        if (loadsByDefault(before_)) {
            addToGlobalList();
            for (const auto& name : applications) {
                after_.domains[name].enabled.reset();
                addToOwnList(after_.domains[name]);
            }
            return;
        }
        const auto loading = applicationsThatLoad(before_, true);
        Names named(loading.begin(), loading.end());
        named.insert(applications.begin(), applications.end());
        for (const auto& name : named)
            after_.domains.try_emplace(name);
        addToGlobalList();
        if (!isSwitchedOff(global()))
            global().enabled = false;
        for (auto& [name, values] : after_.domains)
            if (name != globalDomain)
                setNamed(values, named.contains(name));
    }

    /// Among applications that do not load Vistrel by default.
    void setNamed(LoadingValues& values, bool named) {
        if (named) {
            if (!isSwitchedOn(values))
                values.enabled = true;
            addToOwnList(values);
        } else if (isSwitchedOn(values)) {
            values.enabled.reset();
        }
    }

    void disableAll() {
        removeFromGlobalList();
        for (auto& [name, values] : after_.domains) {
            values.enabled.reset();
            if (name != globalDomain)
                removeFromOwnList(values);
        }
    }

    void disable(const std::vector<std::string>& applications) {
        const bool byDefault = loadsByDefault(before_);
        for (const auto& name : applications) {
            auto& values = after_.domains[name];
            if (byDefault && !isSwitchedOff(values))
                values.enabled = false;
            else if (!byDefault && isSwitchedOn(values))
                values.enabled.reset();
            removeFromOwnList(values);
        }
        if (anyLoads(before_) && !anyLoads(after_))
            disableAll();
    }

    static bool anyLoads(const LoadingDefaults& defaults) {
        return loadsByDefault(defaults) || !applicationsThatLoad(defaults, true).empty();
    }

    LoadingValues& global() { return after_.domains[std::string(globalDomain)]; }

    void addToGlobalList() {
        if (!global().bundles)
            global().bundles = after_.systemBundles;
        add(std::get<Array>(*global().bundles));
    }

    /// A list that says no more than the system's own would say is no list of the user's.
    void removeFromGlobalList() {
        auto& bundles = global().bundles;
        if (bundles && remove(std::get<Array>(*bundles)) &&
            std::get<Array>(*bundles) == after_.systemBundles)
            bundles.reset();
    }

    void addToOwnList(LoadingValues& values) {
        if (auto* list = values.bundles ? std::get_if<Array>(&*values.bundles) : nullptr)
            add(*list);
    }

    /// The list stays, also an empty one: it hides the global one.
    static void removeFromOwnList(LoadingValues& values) {
        if (auto* list = values.bundles ? std::get_if<Array>(&*values.bundles) : nullptr)
            remove(*list);
    }

    /// The loader stands where the first of any copy stood, or at the end.
    void add(Array& list) {
        const auto first = std::ranges::find_if(list, isLoader);
        if (first == list.end()) {
            list.emplace_back(loader_.path);
            return;
        }
        list.erase(std::remove_if(std::next(first), list.end(),
                                  [this](const auto& entry) {
                                      if (isLoader(entry))
                                          sayReplaced(std::get<std::string>(entry));
                                      return isLoader(entry);
                                  }),
                   list.end());
        auto& path = std::get<std::string>(*first);
        sayReplaced(path);
        if (!isSamePath(path, loader_.path))
            path = loader_.path;
    }

    static bool remove(Array& list) { return std::erase_if(list, isLoader) > 0; }

    void sayReplaced(const std::string& path) {
        if (isSamePath(path, loader_.path) || !replaced_.insert(path).second)
            return;
        result_.remarks.push_back("Replaces the loader " + path +
                                  (loader_.exists(path) ? ", which is another copy of Vistrel."
                                                        : ", which no longer exists."));
    }

    static std::string joined(const std::vector<std::string>& names) {
        std::string text;
        for (const auto& name : names)
            text += (text.empty() ? "" : ", ") + name;
        return text;
    }

    /// Where the loader is listed in the end, the applications' own values come first: they say
    /// who is excepted. Where it is taken out, that comes first.
    [[nodiscard]] std::vector<Change> changes() const {
        std::vector<Change> changes;
        const auto inGlobal = changesOf(std::string(globalDomain));
        const bool last = !loadersFor(after_, globalDomain).empty();
        if (!last)
            changes = inGlobal;
        for (const auto& [name, values] : after_.domains)
            if (name != globalDomain)
                std::ranges::copy(changesOf(name), std::back_inserter(changes));
        if (last)
            std::ranges::copy(inGlobal, std::back_inserter(changes));
        return changes;
    }

    [[nodiscard]] std::vector<Change> changesOf(const std::string& domain) const {
        const auto before = valuesOf(before_, domain);
        const auto after = valuesOf(after_, domain);
        std::vector<Change> changes;
        if (before.bundles != after.bundles)
            changes.push_back({domain, bundlesKey, before.bundles, after.bundles});
        if (before.enabled != after.enabled)
            changes.push_back({domain, enabledKey, before.enabled, after.enabled});
        return changes;
    }

    const LoadingDefaults& before_;
    LoadingDefaults after_;
    const Loader& loader_;
    Names replaced_;
    SwitchPlan result_;
};

} // namespace

SwitchPlan plan(const LoadingDefaults& before, const SwitchRequest& request, const Loader& loader) {
    return Planner(before, loader).plan(request);
}

} // namespace vistrel::tool
