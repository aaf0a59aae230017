#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "benchmarks/panel.h"
#include "benchmarks/work.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/resources/resources.h"
#include "peg/widgets/prompt.h"

// The same work in several sizes, whose instruction counts tell how cost grows.

namespace {

std::function<void()> FillPart(int share) {
    Panel::Instance();
    static PegWindow window(kPanel, 0, kStyleBorderNone);
    return [share] {
        const DrawingPass pass(window, kPanel);
        toolkit.screen->Fill(RectOf(0, 0, kPanelWidth - 1, kPanelHeight / share - 1), 0x1234);
    };
}

std::function<void()> Characters(std::size_t count) {
    Panel::Instance();
    static PegWindow window(kPanel, 0, kStyleBorderNone);
    const PegFont* font = PegResources::GetFont(36);
    return [count, font, text = std::u16string(count, u'8')] {
        const DrawingPass pass(window, kPanel);
        toolkit.screen->DrawText(PointOf(0, 0), text.c_str(), PegBrush(0, 0xFFFF), font);
    };
}

std::function<void()> Timers(int count) {
    Panel::Show(Panel::kEmptyScreen);
    static std::deque<std::unique_ptr<PegWindow>> owners;
    for (int i = static_cast<int>(owners.size()); i < count; ++i) {
        SetTimer(*owners.emplace_back(std::make_unique<PegWindow>(kPanel)), 1, INT32_MAX, 0);
    }
    return [] { toolkit.timers->ProcessTick(); };
}

/// A prompt at the bottom of a tower of windows, each in the one before.
std::function<void()> PromptAtDepth(int depth) {
    PegThing* parent = &Panel::Show(Panel::kEmptyScreen);
    for (int i = 0; i < depth; ++i) parent = &AddNew<PegWindow>(*parent, kPanel, std::uint16_t{0}, kStyleBorderNone);
    auto& prompt = AddNew<PegPrompt>(*parent, RectOf(0, 0, 99, 19), u"8", std::uint16_t{0}, kStyleBorderNone);
    Panel::Pump();
    return [&prompt] {
        prompt.Invalidate();
        Panel::Pump();
    };
}

std::function<void()> InvalidAreas(int count) {
    PegThing& screen = Panel::Show(Panel::kEmptyScreen);
    auto prompts = std::make_shared<std::deque<PegPrompt*>>();
    for (int i = 0; i < count; ++i) {
        const PegRect place = RectOf(i % 32 * 10, i / 32 * 10, i % 32 * 10 + 8, i / 32 * 10 + 8);
        prompts->push_back(&AddNew<PegPrompt>(screen, place, nullptr, std::uint16_t{0}, kStyleBorderNone));
    }
    Panel::Pump();
    return [prompts] {
        for (PegPrompt* prompt : *prompts) prompt->Invalidate();
        Panel::Pump();
    };
}

}  // namespace

std::vector<Work> GrowthWork() {
    std::vector<Work> all;
    const auto add = [&](const char* name, auto prepare) { all.push_back({name, 0, 0, 0, prepare}); };
    add("fill of a sixteenth of the panel", [] { return FillPart(16); });
    add("fill of a quarter of the panel", [] { return FillPart(4); });
    add("1 character at 14 pixels", [] { return Characters(1); });
    add("40 characters at 14 pixels", [] { return Characters(40); });
    add("tick with 10 timers", [] { return Timers(10); });
    add("tick with 100 timers", [] { return Timers(100); });
    add("tick with 1000 timers", [] { return Timers(1000); });
    add("prompt in 1 window", [] { return PromptAtDepth(1); });
    add("prompt in 16 windows", [] { return PromptAtDepth(16); });
    add("4 invalid areas", [] { return InvalidAreas(4); });
    add("32 invalid areas", [] { return InvalidAreas(32); });
    add("256 invalid areas", [] { return InvalidAreas(256); });
    return all;
}
