// What drawing costs, in copies of one frame of 153,600 bytes in warm memory; the device write against a bare write of
// the same bytes; loading the resources against inflating the same streams.

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>
#include <valgrind/callgrind.h>
#include <zlib.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "app/application.h"
#include "benchmarks/panel.h"
#include "benchmarks/ratio.h"
#include "benchmarks/work.h"
#include "localization/localization_file.h"
#include "peg/port/win_screen.h"
#include "peg/resources/resource_file.h"
#include "platform/device.h"
#include "simulator/bench/scripted_meter.h"

namespace {

/// Copies one frame in warm memory: the unit of every drawing figure.
void CopyFrame() {
    static std::array<std::uint8_t, kFrameBytes> from{1};
    static std::array<std::uint8_t, kFrameBytes> to;
    std::memcpy(to.data(), from.data(), kFrameBytes);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
}

void DeviceWrite(benchmark::State& state) {
    const std::string path = (Panel::Instance().Board() / "db9000_fb").string();
    PegWinScreen screen(kPanelWidth, kPanelHeight);
    static std::array<std::uint8_t, kFrameBytes> frame;
    constexpr double kGoal = 1.2;
    bench::Compare(
        state, {.goal = kGoal}, 20, [&] { screen.FlushToDevice(); },
        [&] {
            const int device = ::open(path.c_str(), O_RDWR);
            benchmark::DoNotOptimize(::write(device, frame.data(), frame.size()));
            ::close(device);
        });
}

/// Both files from their bytes to what the display looks things up in.
void LoadBothFiles() {
    PegFile file;
    if (!file.Open("/romfs/resources.pbr")) std::abort();
    ResourceFileContent resources;
    benchmark::DoNotOptimize(ReadResourceFile(file, resources));
    if (!file.Open("/romfs/localization.dat")) std::abort();
    LocalizationContent texts;
    ReadLocalizationFile(file, texts);
    benchmark::DoNotOptimize(texts.stringCount);
}

/// Glyphs and pixels as one stream each, in `packed`: what inflating them costs at the least. @return the bytes of the
/// largest when it is inflated
std::size_t PackStreams(std::vector<std::vector<Bytef>>& packed) {
    std::size_t largest = 0;
    const auto keep = [&](const void* data, std::size_t bytes) {
        std::vector<Bytef> stream(compressBound(bytes));
        uLongf size = stream.size();
        compress2(stream.data(), &size, static_cast<const Bytef*>(data), bytes, Z_BEST_COMPRESSION);
        stream.resize(size);
        packed.push_back(std::move(stream));
        largest = std::max(largest, bytes);
    };
    Panel::Instance();
    ResourceFileContent content;
    PegFile file;
    if (!file.Open("/romfs/resources.pbr") || ReadResourceFile(file, content) != FileVerdict::Whole) std::abort();
    for (const auto& set : content.sets) {
        for (const auto& font : set->fonts) {
            for (const auto& page : font.pages) keep(page->packed.steps.data(), page->packed.steps.size() * 2);
        }
        for (const auto& bitmap : set->bitmaps) keep(bitmap->pixels.get(), bitmap->bytes);
    }
    return largest;
}

void Loading(benchmark::State& state) {
    std::vector<std::vector<Bytef>> streams;
    std::vector<Bytef> out(PackStreams(streams));
    constexpr double kGoal = 2;  // so that inflating is the greater part
    bench::Compare(state, {.goal = kGoal}, 3, LoadBothFiles, [&] {
        for (const auto& stream : streams) {
            uLongf size = out.size();
            benchmark::DoNotOptimize(uncompress(out.data(), &size, stream.data(), stream.size()));
        }
    });
}

std::vector<Work> AllWork() {
    std::vector<Work> all = DrawingWork();
    for (Work& work : ScreenWork()) all.push_back(std::move(work));
    return all;
}

/// Runs every piece of work once warm and once counted; for callgrind, which writes a count for each.
void CountInstructions() {
    std::vector<Work> all = AllWork();
    for (Work& work : GrowthWork()) all.push_back(std::move(work));
    for (const Work& work : all) {
        const auto run = work.prepare();
        run();
        run();
        CALLGRIND_START_INSTRUMENTATION;
        run();
        CALLGRIND_STOP_INSTRUMENTATION;
        CALLGRIND_DUMP_STATS_AT(work.name);
        run();
    }
}

/// Builds all screens and prints what that takes, as lines of JSON. The meter does not answer, so that its part is not
/// counted.
void MeasureHandOver() {
    Panel::Instance();
    ScriptedMeter::Instance().FallSilent();
    const std::size_t before = mallinfo2().uordblks;
    const auto build = [] { BuildApplication(*toolkit.manager); };
    const double seconds = bench::SecondsEach(1, build);
    const std::size_t taken = mallinfo2().uordblks - before;
    constexpr const char* kLine = "{\"name\": \"%s\", \"value\": %.2f, \"unit\": \"%s\", \"goal\": %s}\n";
    std::printf(kLine, "hand-over: 187 screens built", seconds * 1e3, "ms", "15");
    std::printf(kLine, "heap that the hand-over takes", static_cast<double>(taken) / (1024 * 1024), "MB", "1.5");
}

}  // namespace

int main(int argc, char** argv) {
    int status = 0;
    if (argc == 2 && std::string_view(argv[1]) == "--count-instructions") {
        CountInstructions();
    } else if (argc == 2 && std::string_view(argv[1]) == "--hand-over") {
        MeasureHandOver();
    } else {
        for (const Work& work : AllWork()) {
            bench::Register(work.name, [work](benchmark::State& state) {
                bench::Compare(state, {.goal = work.goal, .peer = work.peer}, work.repeats, work.prepare(), CopyFrame);
            });
        }
        bench::Register("device write, in bare writes", DeviceWrite);
        bench::Register("loading both files, in inflating", Loading);
        status = bench::RunAll(argc, argv);
    }
    Panel::RemoveBoard();
    return status;
}
