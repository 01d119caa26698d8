#pragma once

namespace vistrel {

class Outlets;
class Platform;

/// What the About window does. Made with its window controller by
/// BundleResources::makeAboutController().
class VTRAboutNIBController {
  public:
    /// Both must outlive the controller.
    VTRAboutNIBController(Platform& platform, Outlets& outlets)
        : platform_(platform), outlets_(outlets) {}

    /// Follows the initialisation of the window controller.
    void init();

    /// The interface file has been loaded: centres the window.
    void awakeFromNib();

    /// Open a page each: the list of manuals, the maker's home page, the support page and the
    /// acknowledgements.
    void openManuals();
    void openQuorvix();
    void openSupport();
    void openACK();

  private:
    Platform& platform_;
    Outlets& outlets_;
};

} // namespace vistrel
