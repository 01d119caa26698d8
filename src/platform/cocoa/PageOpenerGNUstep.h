#pragma once

@class NSURL;

namespace vistrel::cocoa::gnustep {

/// Opens a page of the web in the user's browser, detached from this process: in the platform's own
/// application for such pages where one is registered, else in the browser of the desktop. Nothing
/// happens for an address that is neither http nor https, and where there is no browser.
void openPage(NSURL* url);

} // namespace vistrel::cocoa::gnustep
