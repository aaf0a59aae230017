// What drawing costs, as a ratio to copying one frame of 153,600 bytes in warm memory; the device write against a bare
// write of the same bytes; loading the resources against inflating the same streams.

#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "benchmarks/ratio.h"
#include "localization/localization.h"
#include "localization/localization_file.h"
#include "navigation/navigation_handler.h"
#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"
#include "peg/port/vxpeg.h"
#include "peg/port/win_screen.h"
#include "peg/resources/resource_file.h"
#include "peg/resources/resources.h"
#include "platform/panel.h"
#include "rda/records.h"
#include "screens/alarms/alarm_screens.h"
#include "screens/extremes/minmax_bar_screen.h"
#include "screens/harmonics/harmonic_screen.h"
#include "screens/parameters/parameter_screen.h"
#include "screens/phasor/phasor_screen.h"
#include "tests/bench/scripted_meter.h"

namespace {

constexpr std::size_t kFrameBytes = kPanelWidth * kPanelHeight * 2;
constexpr PegRect kPanel = RectOf(0, 0, kPanelWidth - 1, kPanelHeight - 1);

/// Copies one frame in warm memory: the unit of every drawing figure.
void CopyFrame() {
    static std::array<std::uint8_t, kFrameBytes> from{1};
    static std::array<std::uint8_t, kFrameBytes> to;
    std::memcpy(to.data(), from.data(), kFrameBytes);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
}

/// A board in a folder of its own: the resource files and a frame buffer.
std::filesystem::path MakeBoard() {
    std::string path = (std::filesystem::temp_directory_path() / "bench-board-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) std::abort();
    const std::filesystem::path board(path);
    std::filesystem::create_directory_symlink(ROMFS_DIR, board / "romfs");
    setenv("BOARD_ROOT", path.c_str(), 1);
    return board;
}

void MakeFrameBuffer(const std::filesystem::path& board) {
    const int file = ::open((board / "db9000_fb").c_str(), O_CREAT | O_WRONLY, 0600);
    if (file < 0 || ::ftruncate(file, kFrameBytes) != 0) std::abort();
    ::close(file);
}

/// A frame that stays in memory.
class MemoryScreen : public L16Screen {
public:
    using L16Screen::L16Screen;
    void FlushToDevice() override {}
};

/// The toolkit with its resources and one window that covers the panel.
class Panel {
public:
    Panel() {
        PegFile file;
        if (!file.Open("/romfs/resources.pbr") || PegResources::LoadResourceFile(file, 0) != 1) std::abort();
        PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);
        localizationClass::load();
        CreateParameterScreens();
        CreateActiveAlarmScreens();
        CreatePhasorScreen();
        CreateMinMaxBarScreens();
        AddHarmonics(31, 61);
        AddHarmonics(63, 62);
    }
    static void AddHarmonics(std::uint32_t count, std::int32_t screen) {
        ScriptedMeter::Instance().Answer("DISPLAYFEATURES_getNumHarmonicsDisplayed", count);
        navigationHandlerClass::getInstance().addScreen(screen, *new harmonicDiagramScrnClass(screen),
                                                        SCREEN_KIND_DATA);
    }
    static void Pump() {
        PegMessage message;
        while (toolkit.queue->Poll(message)) toolkit.manager->DispatchMessage(message);
    }

    std::filesystem::path board = MakeBoard();
    os::MessageQueueId queue = os::msgQCreate(kQueueMessages, kQueueMessageBytes, os::kQueueFifo);
    PegToolkitObjects objects{std::make_unique<MemoryScreen>(kPanelWidth, kPanelHeight), queue};
};

Panel& ThePanel() {
    static auto* const panel = new Panel;
    return *panel;
}

/// Compares something drawn inside one pass of the whole panel with a frame copy.
template <typename Draw>
void CompareDrawing(benchmark::State& state, double goal, int repeats, Draw draw) {
    ThePanel();
    static PegWindow window(kPanel, 0, kStyleBorderNone);
    DrawingPass pass(window, kPanel);
    bench::Compare(state, goal, repeats, draw, CopyFrame);
}

void FillPanel(benchmark::State& state) {
    CompareDrawing(state, 1.3, 50, [] { toolkit.screen->Fill(kPanel, 0x1234); });
}

void OpaqueBitmapOfThePanel(benchmark::State& state) {
    const auto bitmap = PegScreen::CreateBitmap(kPanelWidth, kPanelHeight, 0);
    CompareDrawing(state, 1.3, 50, [&] { toolkit.screen->DrawBitmap({}, &bitmap->bitmap); });
}

void CompareText(benchmark::State& state, double goal, const char16_t* text, std::uint32_t font, int lines) {
    ThePanel();
    const PegFont* drawn = PegResources::GetFont(font);
    CompareDrawing(state, goal, 200, [=] {
        for (int line = 0; line < lines; ++line) {
            toolkit.screen->DrawText(PointOf(4, 10 + line * HeightOf(drawn)), text, PegBrush(0x0000, 0xFFFF), drawn);
        }
    });
}

void Text18CharactersAt14Pixels(benchmark::State& state) { CompareText(state, 1.0, u"Active power L1 kW", 36, 1); }
void Text18CharactersAt20Pixels(benchmark::State& state) { CompareText(state, 1.6, u"Active power L1 kW", 40, 1); }
/// About 5,600 covered pixels.
void TwoLinesAt40Pixels(benchmark::State& state) { CompareText(state, 4.0, u"1234.56", 45, 2); }

/// Screen 25 has four rows: the currents.
constexpr std::int32_t kFourRows = 25;
constexpr std::int32_t kOtherFourRows = 41;

PegThing& ShowScreen(std::int32_t screen) {
    ThePanel();
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    navigation.addScreen(200, *new PegWindow(kPanel), SCREEN_KIND_DATA);
    if (toolkit.manager->FirstChild() == nullptr) toolkit.manager->AddChild(*navigation.getCurrentScreen());
    navigation.navigateFromCurrent(screen);
    Panel::Pump();
    return *navigation.getCurrentScreen();
}

PegThing& ShowFourRows() { return ShowScreen(kFourRows); }

void ParameterPageRedrawnWhole(benchmark::State& state) {
    PegThing& screen = ShowFourRows();
    bench::Compare(
        state, 15, 20,
        [&] {
            screen.Invalidate();
            Panel::Pump();
        },
        CopyFrame);
}

void ParameterPageWithFourChangedValues(benchmark::State& state) {
    PegThing& screen = ShowFourRows();
    static int value = 0;
    ScriptedMeter::Instance().AnswerBy(
        "PDMINTERFACE_getRegisterValue", [](std::span<const std::byte>, std::span<std::byte> response) {
            RegisterValue record{};
            std::strcpy(record.label.data(), "Current L1");
            std::snprintf(record.value.data(), record.value.size(), "%d", ++value % 9999);
            std::strcpy(record.unit.data(), "A");
            std::memcpy(response.data(), &record, sizeof record);
            return true;
        });
    PegMessage refresh;
    refresh.type = MSG_TIMER;
    bench::Compare(
        state, 7, 20,
        [&] {
            screen.Message(refresh);
            Panel::Pump();
        },
        CopyFrame);
    ScriptedMeter::Instance().ForgetCalls();
}

void FromOnePageToAnother(benchmark::State& state) {
    ShowFourRows();
    navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
    bench::Compare(
        state, 16, 20,
        [&] {
            const bool first = navigation.getCurrentScreenId() == kFourRows;
            navigation.navigateFromCurrent(first ? kOtherFourRows : kFourRows);
            Panel::Pump();
        },
        CopyFrame);
    ScriptedMeter::Instance().ForgetCalls();
}

void CompareRedraw(benchmark::State& state, double goal, std::int32_t shown) {
    PegThing& screen = ShowScreen(shown);
    bench::Compare(
        state, goal, 20,
        [&] {
            screen.Invalidate();
            Panel::Pump();
        },
        CopyFrame);
}

using Answers = std::array<ScriptedMeter::Bytes, 2>;

/// Compares the refresh of a shown screen, whose data change with every call of an operation, with a frame copy.
void CompareAlternating(benchmark::State& state, double goal, PegThing& screen, std::string_view operation,
                        const Answers& answers) {
    ScriptedMeter& meter = ScriptedMeter::Instance();
    meter.AnswerBy(operation,
                   [answers, second = false](std::span<const std::byte>, std::span<std::byte> response) mutable {
                       second = !second;
                       std::memcpy(response.data(), answers[second ? 1 : 0].data(), response.size());
                       return true;
                   });
    PegMessage refresh;
    refresh.type = MSG_TIMER;
    bench::Compare(
        state, goal, 20,
        [&] {
            screen.Message(refresh);
            Panel::Pump();
        },
        CopyFrame);
    meter.ForgetCalls();
}

/// The same with what the simulated meter answers an hour apart.
void CompareRefresh(benchmark::State& state, double goal, std::int32_t shown, std::string_view operation,
                    std::size_t answerBytes) {
    PegThing& screen = ShowScreen(shown);
    ScriptedMeter& meter = ScriptedMeter::Instance();
    const ScriptedMeter::Bytes payload = meter.LastPayload(operation);
    Answers answers;
    for (ScriptedMeter::Bytes& answer : answers) {
        answer.resize(answerBytes);
        meter.Model().Advance(3'600'000);
        if (!meter.Call(operation, payload, answer)) std::abort();
    }
    CompareAlternating(state, goal, screen, operation, answers);
}

constexpr std::int32_t kAlarmList = 7;
constexpr std::int32_t kPhasors = 68;
constexpr std::int32_t kHarmonics31 = 61;
constexpr std::int32_t kHarmonics63 = 62;
constexpr std::int32_t kThreeBars = 17;

void PhasorsRedrawnWhole(benchmark::State& state) { CompareRedraw(state, 15, kPhasors); }
void PhasorsRefreshed(benchmark::State& state) {
    CompareRefresh(state, 9, kPhasors, "PQINTERFACE_getPhasorData", 10 * sizeof(PhasorEntry));
}
void Harmonics31RedrawnWhole(benchmark::State& state) { CompareRedraw(state, 13, kHarmonics31); }
void Harmonics31Refreshed(benchmark::State& state) {
    CompareRefresh(state, 5, kHarmonics31, "PQINTERFACE_getHarmonicData", sizeof(HarmonicData));
}
void Harmonics63RedrawnWhole(benchmark::State& state) { CompareRedraw(state, 13, kHarmonics63); }
void Harmonics63Refreshed(benchmark::State& state) {
    CompareRefresh(state, 5, kHarmonics63, "PQINTERFACE_getHarmonicData", sizeof(HarmonicData));
}
/// A long list of alarms, whose rows have all moved on by one with every refresh.
void AlarmListRefreshed(benchmark::State& state) {
    ScriptedMeter& meter = ScriptedMeter::Instance();
    meter.Model().Play(*meter::FindScenario("500-alarms"));
    meter.Model().Advance(1000);
    PegThing& screen = ShowScreen(kAlarmList);
    PegMessage refresh;
    refresh.type = MSG_TIMER;
    screen.Message(refresh);  // asks for a page of what is there now
    constexpr std::string_view kOperation = "ALARMSINTERFACE_getActiveAlarms";
    Answers answers;
    answers[0].resize(4 * sizeof(AlarmEntry));
    if (!meter.Call(kOperation, meter.LastPayload(kOperation), answers[0])) std::abort();
    answers[1] = answers[0];
    std::rotate(answers[1].begin(), answers[1].begin() + sizeof(AlarmEntry), answers[1].end());
    CompareAlternating(state, 7, screen, kOperation, answers);
}
void AlarmListRedrawnWhole(benchmark::State& state) { CompareRedraw(state, 13, kAlarmList); }
void ThreeBarsRedrawnWhole(benchmark::State& state) { CompareRedraw(state, 13, kThreeBars); }
void ThreeBarsRefreshed(benchmark::State& state) {
    CompareRefresh(state, 5, kThreeBars, "PQINTERFACE_getMinMaxBarData", sizeof(MinMaxBarData));
}

void DeviceWrite(benchmark::State& state) {
    MakeFrameBuffer(ThePanel().board);
    PegWinScreen screen(kPanelWidth, kPanelHeight);
    static std::array<std::uint8_t, kFrameBytes> frame;
    const std::string path = (ThePanel().board / "db9000_fb").string();
    bench::Compare(
        state, 1.2, 20, [&] { screen.FlushToDevice(); },
        [&] {
            const int device = ::open(path.c_str(), O_RDWR);
            benchmark::DoNotOptimize(::write(device, frame.data(), frame.size()));
            ::close(device);
        });
}

/// Both files from their bytes to what the display looks things up in.
void LoadBothFiles(benchmark::State& state) {
    ThePanel();
    const auto load = [] {
        PegFile file;
        if (!file.Open("/romfs/resources.pbr")) std::abort();
        ResourceFileContent resources;
        benchmark::DoNotOptimize(ReadResourceFile(file, resources));
        if (!file.Open("/romfs/localization.dat")) std::abort();
        LocalizationContent texts;
        ReadLocalizationFile(file, texts);
        benchmark::DoNotOptimize(texts.stringCount);
    };
    // The streams as one: what inflating them costs at the least.
    ResourceFileContent content;
    PegFile file;
    if (!file.Open("/romfs/resources.pbr") || ReadResourceFile(file, content) != FileVerdict::Whole) std::abort();
    std::vector<std::vector<Bytef>> streams;
    std::size_t largest = 0;
    const auto keep = [&](const void* data, std::size_t size) {
        std::vector<Bytef> stream(compressBound(size));
        uLongf packed = stream.size();
        compress2(stream.data(), &packed, static_cast<const Bytef*>(data), size, Z_BEST_COMPRESSION);
        stream.resize(packed);
        streams.push_back(std::move(stream));
        largest = std::max(largest, size);
    };
    for (const auto& set : content.sets) {
        for (const auto& font : set->fonts) {
            for (const auto& page : font.pages) keep(page->glyphs.data(), page->glyphs.size());
        }
        for (const auto& bitmap : set->bitmaps) {
            if (bitmap->bytes > 0) keep(bitmap->pixels.get(), bitmap->bytes);
        }
    }
    std::vector<Bytef> out(largest);
    bench::Compare(state, 1.5, 3, load, [&] {
        for (const auto& stream : streams) {
            uLongf size = out.size();
            benchmark::DoNotOptimize(uncompress(out.data(), &size, stream.data(), stream.size()));
        }
    });
}

BENCHMARK(FillPanel)->Apply(bench::Rounds);
BENCHMARK(OpaqueBitmapOfThePanel)->Apply(bench::Rounds);
BENCHMARK(Text18CharactersAt14Pixels)->Apply(bench::Rounds);
BENCHMARK(Text18CharactersAt20Pixels)->Apply(bench::Rounds);
BENCHMARK(TwoLinesAt40Pixels)->Apply(bench::Rounds);
BENCHMARK(ParameterPageRedrawnWhole)->Apply(bench::Rounds);
BENCHMARK(ParameterPageWithFourChangedValues)->Apply(bench::Rounds);
BENCHMARK(FromOnePageToAnother)->Apply(bench::Rounds);
BENCHMARK(AlarmListRedrawnWhole)->Apply(bench::Rounds);
BENCHMARK(AlarmListRefreshed)->Apply(bench::Rounds);
BENCHMARK(PhasorsRedrawnWhole)->Apply(bench::Rounds);
BENCHMARK(PhasorsRefreshed)->Apply(bench::Rounds);
BENCHMARK(Harmonics31RedrawnWhole)->Apply(bench::Rounds);
BENCHMARK(Harmonics31Refreshed)->Apply(bench::Rounds);
BENCHMARK(Harmonics63RedrawnWhole)->Apply(bench::Rounds);
BENCHMARK(Harmonics63Refreshed)->Apply(bench::Rounds);
BENCHMARK(ThreeBarsRedrawnWhole)->Apply(bench::Rounds);
BENCHMARK(ThreeBarsRefreshed)->Apply(bench::Rounds);
BENCHMARK(DeviceWrite)->Apply(bench::Rounds);
BENCHMARK(LoadBothFiles)->Apply(bench::Rounds);

}  // namespace

int main(int argc, char** argv) {
    const int status = bench::RunAll(argc, argv);
    std::filesystem::remove_all(ThePanel().board);
    return status;
}
