#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"

#include <string>

namespace vistrel::memory {

/// A window that goes wherever it is asked to.
class MemoryWindow final : public Window {
  public:
    MemoryWindow(CallLog& log, std::string name, const Rect& frame)
        : log_(log), name_(std::move(name)), frame_(frame) {}

    [[nodiscard]] Rect frame() const override {
        log_.record(name_, " frame");
        return frame_;
    }

    void setFrameAnimated(const Rect& frame) override {
        log_.record(name_, " setFrameAnimated ", frame);
        frame_ = frame;
    }

    void setCollectionBehavior(std::uint64_t behavior) override {
        log_.record(name_, " setCollectionBehavior ", behavior);
        collectionBehavior = behavior;
    }

    std::uint64_t collectionBehavior = 0;

  private:
    CallLog& log_;
    std::string name_;
    Rect frame_;
};

} // namespace vistrel::memory
