// Every state of the defaults that matters, times every request.
#include "MemoryDefaultsStore.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace vistrel::tool {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string ours = "/usr/lib/GNUstep/Bundles/VistrelLoader.bundle";
const std::string otherCopy = "/home/tester/build/bundles/VistrelLoader.bundle";
const std::string other = "/usr/lib/GNUstep/Bundles/Other.bundle";
const std::string third = "/opt/Third.bundle";
const std::string global(globalDomain);

const std::vector<std::string> applications{"Ink", "TextEdit", "Unknown"};

Loader loader() {
    return {.path = ours, .exists = [](const std::string& path) { return path == otherCopy; }};
}

PropertyList list(std::initializer_list<PropertyList> entries) {
    return Array(entries);
}

using Values = std::vector<std::optional<PropertyList>>;

/// Lists without anything of ours.
Values foreignLists() {
    return {std::nullopt, list({other, std::int64_t{7}, third})};
}

Values allLists() {
    auto lists = foreignLists();
    lists.push_back(list({}));
    lists.push_back(list({other, otherCopy, third}));
    lists.push_back(list({otherCopy, other, ours + "/", ours}));
    return lists;
}

/// Lists of an application's own.
Values ownLists() {
    return {std::nullopt, list({}), list({other, ours}), list({otherCopy, third})};
}

Values switches() {
    return {std::nullopt, true, false, std::string("NO")};
}

std::vector<SwitchRequest> requests() {
    std::vector<SwitchRequest> all;
    for (const auto to : {Switch::on, Switch::off})
        for (const auto& names : std::vector<std::vector<std::string>>{
                 {}, {"TextEdit"}, {"Unknown"}, {"TextEdit", "Ink", "Ink"}})
            all.push_back({.to = to, .applications = names});
    return all;
}

LoadingDefaults normal(LoadingDefaults defaults) {
    std::erase_if(defaults.domains,
                  [](const auto& domain) { return domain.second == LoadingValues{}; });
    return defaults;
}

bool operator==(const LoadingDefaults& a, const LoadingDefaults& b) {
    return normal(a).domains == normal(b).domains;
}

LoadingDefaults made(LoadingDefaults defaults, const std::vector<Change>& changes) {
    for (const auto& change : changes) {
        auto& values = defaults.domains[change.domain];
        (change.key == bundlesKey ? values.bundles : values.enabled) = change.after;
    }
    return defaults;
}

template <typename Visit>
void forEveryState(const Values& globalLists, const Values& ownLists, const Values& enabled,
                   Visit visit) {
    for (const auto& globalList : globalLists)
        for (const auto& globalSwitch : enabled)
            for (const auto& textEditList : ownLists)
                for (const auto& textEditSwitch : enabled)
                    for (const auto& inkSwitch : {enabled.front(), enabled.back()}) {
                        LoadingDefaults state;
                        state.domains[global] = {globalList, globalSwitch};
                        state.domains["TextEdit"] = {textEditList, textEditSwitch};
                        state.domains["Ink"] = {{}, inkSwitch};
                        visit(state);
                    }
}

template <typename Visit> void forEveryStateAndRequest(Visit visit) {
    forEveryState(allLists(), ownLists(), switches(), [&visit](const LoadingDefaults& state) {
        for (const auto& request : requests())
            visit(state, request);
    });
}

bool isNamed(const SwitchRequest& request, const std::string& name) {
    return std::ranges::find(request.applications, name) != request.applications.end();
}

std::vector<std::string> foreign(const std::optional<PropertyList>& value) {
    std::vector<std::string> entries;
    const auto* array = value ? std::get_if<Array>(&*value) : nullptr;
    for (const auto& entry : array != nullptr ? *array : Array{})
        if (!isLoader(entry))
            entries.push_back(std::holds_alternative<std::string>(entry)
                                  ? std::get<std::string>(entry)
                                  : "#" + std::to_string(entry.index()));
    return entries;
}

} // namespace

TEST(EveryState, BecomesWhatWasRequestedAndNothingElseChanges) {
    forEveryStateAndRequest([](const LoadingDefaults& state, const SwitchRequest& request) {
        const auto plan = tool::plan(state, request, loader());
        ASSERT_THAT(plan.problems, IsEmpty());
        const bool on = request.to == Switch::on;
        const bool all = request.applications.empty();
        for (const auto& name : applications) {
            const bool wanted = isNamed(request, name) ? on
                                : !all                 ? loads(state, name)
                                       : on && !isSwitchedOff(valuesOf(state, name));
            ASSERT_EQ(loads(plan.after, name), wanted) << name;
        }
        ASSERT_EQ(loadsByDefault(plan.after), all ? on : loadsByDefault(state));
    });
}

TEST(EveryState, KeepsForeignBundlesInTheirOrder) {
    forEveryStateAndRequest([](const LoadingDefaults& state, const SwitchRequest& request) {
        const auto after = tool::plan(state, request, loader()).after;
        for (const auto& domain : {global, std::string("TextEdit"), std::string("Ink")})
            ASSERT_EQ(foreign(valuesOf(after, domain).bundles),
                      foreign(valuesOf(state, domain).bundles));
    });
}

TEST(EveryState, ChangesNothingTheSecondTime) {
    forEveryStateAndRequest([](const LoadingDefaults& state, const SwitchRequest& request) {
        const auto once = tool::plan(state, request, loader()).after;
        ASSERT_THAT(tool::plan(once, request, loader()).changes, IsEmpty());
    });
}

TEST(EveryState, IsReachedByTheChangesThatArePlanned) {
    forEveryStateAndRequest([](const LoadingDefaults& state, const SwitchRequest& request) {
        const auto plan = tool::plan(state, request, loader());
        ASSERT_TRUE(made(state, plan.changes) == plan.after);
        for (const auto& change : plan.changes)
            ASSERT_NE(change.before, change.after);
    });
}

TEST(EveryState, HoldsNothingOfOursWhenAllIsDisabled) {
    forEveryState(allLists(), ownLists(), switches(), [](const LoadingDefaults& state) {
        const auto after = tool::plan(state, {.to = Switch::off}, loader()).after;
        for (const auto& [name, values] : after.domains) {
            ASSERT_EQ(values.enabled, std::nullopt);
            ASSERT_THAT(loadersFor(after, name), IsEmpty());
        }
    });
}

TEST(EveryState, ListsTheLoaderOnceAndByItsOwnPathWhenAllIsEnabled) {
    forEveryState(allLists(), ownLists(), switches(), [](const LoadingDefaults& state) {
        const auto after = tool::plan(state, {.to = Switch::on}, loader()).after;
        const auto found = loadersFor(after, global);
        ASSERT_EQ(found.size(), 1U);
        ASSERT_EQ(bundlePath(found[0]), ours);
        ASSERT_EQ(valuesOf(after, global).enabled, std::nullopt);
    });
}

TEST(ARoundTrip, EndsWithTheVeryDefaultsItBeganWith) {
    const auto before = [](auto visit) {
        auto own = foreignLists();
        own.push_back(list({}));
        forEveryState(foreignLists(), own, {std::nullopt}, visit);
    };
    before([](const LoadingDefaults& state) {
        for (const auto& first : requests())
            for (const auto& second : requests()) {
                auto now = tool::plan(state, first, loader()).after;
                now = tool::plan(now, second, loader()).after;
                now = tool::plan(now, {.to = Switch::off}, loader()).after;
                ASSERT_TRUE(now == state);
            }
    });
}

TEST(ARoundTrip, OfTheLastNamedApplicationTakesEverythingOut) {
    LoadingDefaults state;
    state.domains[global].bundles = list({other});
    state.domains["TextEdit"].bundles = list({});
    const SwitchRequest both{.to = Switch::on, .applications = {"TextEdit", "Ink"}};
    auto now = tool::plan(state, both, loader()).after;
    now = tool::plan(now, {.to = Switch::off, .applications = {"TextEdit"}}, loader()).after;
    EXPECT_TRUE(loads(now, "Ink"));
    now = tool::plan(now, {.to = Switch::off, .applications = {"Ink"}}, loader()).after;
    EXPECT_TRUE(now == state);
}

TEST(ASwitch, IsReadAsTheLoaderReadsIt) {
    for (const auto& off : {PropertyList(false), PropertyList(std::int64_t{0}), list({}),
                            PropertyList(std::string("NO")), PropertyList(std::string("off"))})
        EXPECT_TRUE(isSwitchedOff({.enabled = off}));
    for (const auto& on : {PropertyList(true), PropertyList(std::int64_t{2}), PropertyList(0.5),
                           PropertyList(std::string("YES")), PropertyList(std::string("1"))})
        EXPECT_TRUE(isSwitchedOn({.enabled = on}));
    EXPECT_FALSE(isSwitchedOn({}));
    EXPECT_FALSE(isSwitchedOff({}));
}

TEST(AGlobalList, ThatIsEmptyIsTheSameAsNone) {
    LoadingDefaults state;
    state.domains[global].bundles = list({});
    auto now = tool::plan(state, {.to = Switch::on}, loader()).after;
    now = tool::plan(now, {.to = Switch::off}, loader()).after;
    EXPECT_EQ(valuesOf(now, global), LoadingValues{});
}

TEST(AGlobalList, KeepsTheSystemsBundlesWhichItWouldHide) {
    LoadingDefaults state{.systemBundles = {other, third}};
    const auto on = tool::plan(state, {.to = Switch::on}, loader()).after;
    EXPECT_EQ(valuesOf(on, global).bundles, list({other, third, ours}));
    EXPECT_TRUE(tool::plan(on, {.to = Switch::off}, loader()).after == state);
}

TEST(AGlobalList, ThatHidesTheSystemsBundlesGoesOnHidingThem) {
    LoadingDefaults state{.systemBundles = {other}};
    state.domains[global].bundles = list({});
    auto now = tool::plan(state, {.to = Switch::on}, loader()).after;
    EXPECT_EQ(valuesOf(now, global).bundles, list({ours}));
    now = tool::plan(now, {.to = Switch::off}, loader()).after;
    EXPECT_TRUE(now == state);
}

TEST(AnotherCopysLoader, IsReplacedWhereItStandsAndTheUserIsTold) {
    LoadingDefaults state;
    state.domains[global].bundles = list({other, otherCopy, third, "/gone/VistrelLoader.bundle"});
    const auto plan = tool::plan(state, {.to = Switch::on}, loader());
    EXPECT_EQ(valuesOf(plan.after, global).bundles, list({other, ours, third}));
    EXPECT_THAT(plan.remarks,
                testing::UnorderedElementsAre(
                    "Replaces the loader " + otherCopy + ", which is another copy of Vistrel.",
                    "Replaces the loader /gone/VistrelLoader.bundle, which no longer exists."));
}

TEST(AnotherCopysLoader, StaysWhereOneApplicationIsSwitchedOff) {
    LoadingDefaults state;
    state.domains[global].bundles = list({otherCopy});
    const SwitchRequest request{.to = Switch::off, .applications = {"Ink"}};
    EXPECT_THAT(tool::plan(state, request, loader()).changes,
                ElementsAre(Change{"Ink", enabledKey, std::nullopt, false}));
}

TEST(EnablingAll, KeepsWhatIsSwitchedOffByNameAndSaysSo) {
    LoadingDefaults state;
    state.domains["Ink"].enabled = false;
    state.domains["Gorm"].enabled = std::string("NO");
    const auto plan = tool::plan(state, {.to = Switch::on}, loader());
    EXPECT_THAT(plan.remarks, ElementsAre("Still switched off by name: Gorm, Ink."));
    EXPECT_EQ(valuesOf(plan.after, "Gorm").enabled, PropertyList(std::string("NO")));
}

TEST(EnablingAll, AddsTheLoaderToListsThatHideTheGlobalOne) {
    LoadingDefaults state;
    state.domains["TextEdit"].bundles = list({other});
    const auto plan = tool::plan(state, {.to = Switch::on}, loader());
    EXPECT_EQ(valuesOf(plan.after, "TextEdit").bundles, list({other, ours}));
    EXPECT_EQ(tool::plan(plan.after, {.to = Switch::off}, loader()).after.domains.at("TextEdit"),
              state.domains["TextEdit"]);
}

TEST(EnablingAll, LeavesAnApplicationsOddListAndSaysSo) {
    LoadingDefaults state;
    state.domains["TextEdit"].bundles = std::string("/a.bundle");
    const auto plan = tool::plan(state, {.to = Switch::on}, loader());
    EXPECT_THAT(plan.remarks, ElementsAre(HasSubstr("TextEdit does not load Vistrel")));
    EXPECT_EQ(valuesOf(plan.after, "TextEdit"), state.domains["TextEdit"]);
}

TEST(EnablingOne, ListsTheLoaderAndExceptsAllOthers) {
    const SwitchRequest request{.to = Switch::on, .applications = {"TextEdit"}};
    const auto plan = tool::plan({}, request, loader());
    EXPECT_THAT(plan.changes, ElementsAre(Change{"TextEdit", enabledKey, std::nullopt, true},
                                          Change{global, bundlesKey, std::nullopt, list({ours})},
                                          Change{global, enabledKey, std::nullopt, false}))
        << "the exceptions come before the list";
}

TEST(DisablingAll, TakesTheListOutFirst) {
    LoadingDefaults state;
    state.domains[global] = {list({ours}), false};
    state.domains["TextEdit"].enabled = true;
    EXPECT_THAT(tool::plan(state, {.to = Switch::off}, loader()).changes,
                ElementsAre(Change{global, bundlesKey, list({ours}), std::nullopt},
                            Change{global, enabledKey, false, std::nullopt},
                            Change{"TextEdit", enabledKey, true, std::nullopt}));
}

TEST(DisablingOne, WhereNothingIsEnabledLeavesNoTrace) {
    const SwitchRequest request{.to = Switch::off, .applications = {"TextEdit"}};
    EXPECT_THAT(tool::plan({}, request, loader()).changes, IsEmpty());
}

TEST(DisablingOne, WhereNothingIsEnabledLeavesTheOthersAsTheyAre) {
    LoadingDefaults state;
    state.domains["Ink"].enabled = false;
    const SwitchRequest request{.to = Switch::off, .applications = {"TextEdit"}};
    EXPECT_THAT(tool::plan(state, request, loader()).changes, IsEmpty());
}

TEST(DisablingOne, ThatIsSwitchedOffAlreadyKeepsTheWordForIt) {
    LoadingDefaults state;
    state.domains[global].bundles = list({ours});
    state.domains["Ink"].enabled = std::string("NO");
    const SwitchRequest request{.to = Switch::off, .applications = {"Ink"}};
    EXPECT_THAT(tool::plan(state, request, loader()).changes, IsEmpty());
}

TEST(AnOddGlobalList, IsAProblemForEveryRequest) {
    for (const auto& odd : {PropertyList(std::string("/a.bundle")), PropertyList(true),
                            PropertyList(Dictionary{}), PropertyList(std::int64_t{1})})
        for (const auto& request : requests()) {
            LoadingDefaults state;
            state.domains[global].bundles = odd;
            const auto plan = tool::plan(state, request, loader());
            EXPECT_THAT(plan.problems, ElementsAre(HasSubstr("is no list of bundles")));
            EXPECT_THAT(plan.changes, IsEmpty());
            EXPECT_TRUE(plan.after == state);
        }
}

TEST(AnOddListOfANamedApplication, IsAProblem) {
    LoadingDefaults state;
    state.domains["Ink"].bundles = std::string("/a.bundle");
    const SwitchRequest request{.to = Switch::on, .applications = {"TextEdit", "Ink"}};
    const auto plan = tool::plan(state, request, loader());
    EXPECT_THAT(plan.problems, ElementsAre(HasSubstr("defaults of Ink")));
    EXPECT_THAT(plan.changes, IsEmpty());
}

TEST(AnUnreadableDomain, IsAProblemWhereItWouldHaveToChange) {
    for (const auto& request : requests()) {
        LoadingDefaults state{.unreadable = {{"TextEdit", "it is damaged"}}};
        const auto plan = tool::plan(state, request, loader());
        if (isNamed(request, "TextEdit")) {
            EXPECT_THAT(plan.problems, ElementsAre(HasSubstr("it is damaged")));
            EXPECT_THAT(plan.changes, IsEmpty());
        } else {
            EXPECT_THAT(plan.problems, IsEmpty());
            EXPECT_FALSE(plan.after.domains.contains("TextEdit"));
        }
        state.unreadable = {{global, "it is damaged"}};
        EXPECT_FALSE(tool::plan(state, request, loader()).problems.empty());
    }
}

TEST(ALoader, IsToldByTheNameOfItsBundle) {
    for (const auto* path : {"/a/VistrelLoader.bundle", "/a/VistrelLoader.bundle/",
                             "/a/./VistrelLoader.bundle//", "VistrelLoader.bundle"})
        EXPECT_TRUE(isLoader(std::string(path))) << path;
    for (const auto* path : {"/a/Vistrel.bundle", "/VistrelLoader.bundle/b", "", "/",
                             "/a/NoVistrelLoader.bundle", "/a/VistrelLoader.bundle.old"})
        EXPECT_FALSE(isLoader(std::string(path))) << path;
    EXPECT_FALSE(isLoader(std::int64_t{1}));
}

class Applying : public testing::Test {
  protected:
    std::optional<std::string> apply(const SwitchRequest& request) {
        const auto plan = tool::plan(loadingDefaults(store.read()), request, loader());
        return tool::apply(plan.changes, store);
    }

    MemoryDefaultsStore store{{.domains = {{global, {{"GSTheme", std::string("Sombre")}}},
                                           {"Ink", {{"NSFont", std::string("Mono")}}}}}};
};

TEST_F(Applying, LeavesAllOtherValuesAsTheyAre) {
    const auto before = store.read().domains;
    EXPECT_EQ(apply({.to = Switch::on, .applications = {"Ink", "TextEdit"}}), std::nullopt);
    EXPECT_THAT(store.written, ElementsAre("Ink", "TextEdit", global));
    EXPECT_NE(store.read().domains, before);
    EXPECT_EQ(apply({.to = Switch::off}), std::nullopt);
    EXPECT_EQ(store.read().domains, before);
}

TEST_F(Applying, WritesNothingWhenThereIsNothingToChange) {
    store.readOnly = "nobody asks";
    EXPECT_EQ(apply({.to = Switch::off}), std::nullopt);
    EXPECT_THAT(store.written, IsEmpty());
}

TEST_F(Applying, WritesNothingWhereNothingCanBeWritten) {
    store.readOnly = "The folder cannot be written.";
    EXPECT_EQ(apply({.to = Switch::on}), "The folder cannot be written. Nothing has been changed.");
    EXPECT_THAT(store.written, IsEmpty());
}

TEST_F(Applying, SaysWhatStandsAfterAFailure) {
    store.failingDomain = global;
    const auto problem = apply({.to = Switch::on, .applications = {"Ink"}});
    ASSERT_TRUE(problem);
    EXPECT_THAT(*problem, HasSubstr("the defaults of 1 domain had been changed"));
    EXPECT_FALSE(loads(loadingDefaults(store.read()), "Ink"));
    store.failingDomain.clear();
    EXPECT_EQ(apply({.to = Switch::on, .applications = {"Ink"}}), std::nullopt);
    EXPECT_TRUE(loads(loadingDefaults(store.read()), "Ink"));
}

} // namespace vistrel::tool
