#include "core/Pages.h"

#include "platform/Platform.h"

namespace vistrel {

namespace {

std::string onMainServer(const BundleResources& resources, std::string_view path) {
    return resources.infoText("VTRMainServer").append(path);
}

std::string onSecondServer(const BundleResources& resources, std::string_view path) {
    return resources.infoText("VTRSecondServer").append(path);
}

} // namespace

std::string releaseNotesPage(const BundleResources& resources) {
    return resources.infoText("VTRReleaseNotesPage");
}

std::string versionFile(const BundleResources& resources) {
    return onMainServer(resources, "/versions/Vistrel.txt");
}

std::string homePage(const BundleResources& resources) {
    return onMainServer(resources, "/");
}

std::string manual(const BundleResources& resources) {
    return onMainServer(resources, "/manuals/Vistrel%20Manual.pdf");
}

std::string acknowledgementsPage(const BundleResources& resources) {
    return onMainServer(resources, "/acknowledgment.html");
}

std::string applicationsPage(const BundleResources& resources) {
    return onSecondServer(resources, "/applications/applications.html");
}

std::string manualsPage(const BundleResources& resources) {
    return onSecondServer(resources, "/support/manuals/manuals.html");
}

std::string supportPage(const BundleResources& resources) {
    return onSecondServer(resources, "/support/support.html");
}

} // namespace vistrel
