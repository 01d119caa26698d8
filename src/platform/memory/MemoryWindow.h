#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"
#include "platform/memory/MemoryDesktop.h"

#include <string>

namespace vistrel::memory {

class MemoryScreen final : public Screen {
  public:
    [[nodiscard]] Rect frame() const override { return frame_; }

    MemoryScreen& show(const Rect& frame) {
        frame_ = frame;
        return *this;
    }

  private:
    Rect frame_;
};

/// A window that goes wherever it is asked to. Its title bar is 22 points high; it has no other
/// decorations.
class MemoryWindow final : public Window {
  public:
    static constexpr double titleBarHeight = 22;

    MemoryWindow(CallLog& log, const MemoryDesktop& desktop, std::string name, const Rect& frame)
        : log_(log), desktop_(desktop), name_(std::move(name)), frame_(frame) {}

    [[nodiscard]] Rect frame() const override;

    /// The first screen that holds the window's centre; nothing when none does.
    Screen& screen() override;

    void setFrameAnimated(const Rect& frame) override;
    [[nodiscard]] Rect frameRectForContentRect(const Rect& content) const override;
    void center() override;
    void setLevel(std::int64_t newLevel) override;
    void setCollectionBehavior(std::uint64_t behavior) override;
    void makeKeyAndOrderFront() override;

    std::int64_t level = 0;
    std::uint64_t collectionBehavior = 0;

  private:
    Screen& screenAtCentre();

    CallLog& log_;
    const MemoryDesktop& desktop_;
    std::string name_;
    Rect frame_;
    MemoryScreen screen_;
};

} // namespace vistrel::memory
