#pragma once

#include <algorithm>
#include <vector>

#include "peg/core/window.h"
#include "simulator/bench/toolkit_bench.h"

/// A window that remembers what reached it and where it was asked to draw.
class Recorder : public PegWindow {
public:
    explicit Recorder(const PegRect& rect = RectOf(0, 0, 99, 99), std::uint16_t id = 0,
                      std::uint32_t style = kStyleBorderNone)
        : PegWindow(rect, id, style) {}

    std::int32_t Message(const PegMessage& message) override {
        received.push_back(message);
        return PegWindow::Message(message);
    }
    void Draw(const PegRect& invalid) override {
        drawn.push_back(invalid);
        PegWindow::Draw(invalid);
    }
    int Count(std::uint16_t type) const {
        return static_cast<int>(std::ranges::count(received, type, &PegMessage::type));
    }

    std::vector<PegMessage> received;
    std::vector<PegRect> drawn;
};

/// A message for one thing.
inline PegMessage MessageTo(PegThing& target, std::uint16_t type, std::int16_t param = 0) {
    PegMessage message = MessageOf(type, param);
    message.target = &target;
    return message;
}
