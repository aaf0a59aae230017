#include "simulator/bench/toolkit_bench.h"

#include "platform/panel.h"

ToolkitBench::ToolkitBench()
    : m_screen(new BenchScreen(kPanelWidth, kPanelHeight)),
      m_queue(os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo)),
      m_objects(std::make_unique<PegToolkitObjects>(std::unique_ptr<PegScreen>(m_screen), m_queue)) {}

ToolkitBench::~ToolkitBench() {
    m_objects.reset();
    os::msgQDelete(m_queue);
}

void ToolkitBench::Pump() {
    PegMessage message;
    while (toolkit.queue->Poll(message)) {
        if (Manager().RouteToTaskQueue(message) == 0) Manager().DispatchMessage(message);
    }
}

void ToolkitBench::Ticks(int count) {
    for (int i = 0; i < count; ++i) {
        postToolkitTick();
        Pump();
    }
}

std::vector<std::string> ToolkitBench::Picture(const PegRect& rect, std::initializer_list<ColorLetter> colors) const {
    std::vector<std::string> picture;
    for (int y = rect.top; y <= rect.bottom; ++y) {
        std::string& row = picture.emplace_back();
        for (int x = rect.left; x <= rect.right; ++x) {
            char letter = '?';
            for (const ColorLetter& candidate : colors) {
                if (candidate.color == Pixel(x, y)) letter = candidate.letter;
            }
            row += letter;
        }
    }
    return picture;
}

PegMessage MessageOf(std::uint16_t type, std::int16_t param) {
    PegMessage message;
    message.type = type;
    message.param = param;
    return message;
}
