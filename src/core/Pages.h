#pragma once

#include <string>

namespace vistrel {

class BundleResources;

/// The addresses of the maker's pages and files on the web. The servers are named in the bundle's
/// Info.plist, so that whoever packages the bundle can move them; the paths below them are the
/// program's. Without a server's name the address is one that nothing can open.

/// The page of the product's release notes, on the maker's blog.
std::string releaseNotesPage(const BundleResources& resources);

/// The text file that holds the number of the latest version.
std::string versionFile(const BundleResources& resources);

/// The maker's home page.
std::string homePage(const BundleResources& resources);

/// The manual, a PDF file.
std::string manual(const BundleResources& resources);

/// The page that thanks whoever helped.
std::string acknowledgementsPage(const BundleResources& resources);

/// The list of the maker's applications.
std::string applicationsPage(const BundleResources& resources);

/// The list of the maker's manuals.
std::string manualsPage(const BundleResources& resources);

/// The maker's support page.
std::string supportPage(const BundleResources& resources);

} // namespace vistrel
