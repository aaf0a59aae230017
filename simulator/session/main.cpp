#include <fcntl.h>
#include <unistd.h>
#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "simulator/session/modes.h"
#include "simulator/session/picture.h"
#include "simulator/session/session.h"

namespace {

namespace fs = std::filesystem;

constexpr int kLastScreen = 201;
constexpr int kFailed = 1;
constexpr int kUsageError = 2;

struct Options : session::ModeOptions {
    std::string picture;
    std::string all;
    std::string console = "/dev/null";
};

/// What the display prints goes elsewhere, so that the standard output is the pictures' own.
/// @return the standard output
int SetConsoleAside(const std::string& console) {
    const int output = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    const int file = ::open(console.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (output < 0 || file < 0 || ::dup2(file, STDOUT_FILENO) < 0) throw std::runtime_error("cannot write " + console);
    return output;
}

void TakePicture(const Options& options, int output) {
    session::BoardPort board;
    session::Session session(options.setting, board);
    session.FreezeMeter();
    session.Start();
    if (options.setting.screen == 0) session.Run(1000);
    session::WritePicture(session.NewestFrame(), options.picture, output);
}

void TakeAll(const Options& options) {
    session::BoardPort board;
    session::Session session(options.setting, board);
    session.FreezeMeter();
    session.Start();
    fs::create_directories(options.all);
    int count = 0;
    for (int screen = 1; screen <= kLastScreen; ++screen) {
        if (!session.Show(screen)) continue;
        char name[16];
        std::snprintf(name, sizeof name, "%03d.png", screen);
        session::WritePicture(session.NewestFrame(), fs::path(options.all) / name, STDOUT_FILENO);
        ++count;
    }
    std::fprintf(stderr, "display-session: %d screens in %s\n", count, options.all.c_str());
}

fs::path RomfsBeside(const char* program) {
    std::error_code ignored;
    const fs::path self = fs::canonical("/proc/self/exe", ignored);
    return (self.empty() ? fs::path(program) : self).parent_path().parent_path() / "romfs";
}

/// The first file of that name and another number that is not there: kitchen.rec and kitchen-2.rec lead to
/// kitchen-3.rec.
std::string NextFile(const fs::path& file) {
    std::string stem = file.stem().string();
    const std::size_t last = stem.find_last_not_of("0123456789");
    if (last != stem.npos && last > 0 && last + 1 < stem.size() && stem[last] == '-') stem.erase(last);
    for (int number = 2;; ++number) {
        const std::string name = stem + '-' + std::to_string(number) + file.extension().string();
        if (!fs::exists(file.parent_path() / name)) return (file.parent_path() / name).string();
    }
}

/// Becomes this program again, with the same arguments but for the file to record in.
void RecordAgain(std::vector<std::string> arguments, const std::string& file) {
    constexpr std::string_view kRecord = "--record";
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == kRecord && i + 1 < arguments.size()) arguments[i + 1] = NextFile(file);
        if (arguments[i].starts_with(std::string(kRecord) + '=')) arguments[i] = "--record=" + NextFile(file);
    }
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    ::execv("/proc/self/exe", pointers.data());
    throw std::system_error(errno, std::generic_category(), "cannot start again");
}

int Run(const Options& options, const std::vector<std::string>& arguments) {
    const int output = SetConsoleAside(options.console);
    if (!options.picture.empty()) TakePicture(options, output);
    if (!options.all.empty()) TakeAll(options);
    if (!options.record.empty() && session::Record(options)) RecordAgain(arguments, options.record);
    return options.replay.empty() || session::ReplayAgain(options) ? 0 : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    session::Setting& setting = options.setting;
    setting.romfs = RomfsBeside(argv[0]);
    CLI::App app("Runs display and meter in one process, on a clock of its own: the same arguments give the same run.");
    app.add_option("--screen", setting.screen, "Screen to show (default: the first)")
        ->check(CLI::Range(1, kLastScreen));
    app.add_option("--lang", setting.language, "Language: en, de, fr, es, it, ru")->capture_default_str();
    app.add_option("--mode", setting.mode, "Display mode: normal, alt, test")->capture_default_str();
    app.add_option("--scenario", setting.scenario, "Situation of the meter: a name, or a file")->capture_default_str();
    app.add_option("--at", setting.at, "Seconds for which the scenario has lasted when the display comes up")
        ->check(CLI::Range(0, 86400))
        ->capture_default_str();
    app.add_option("--seed", setting.seed, "Seed of everything random")->capture_default_str();
    app.add_option("--start", setting.start, "Start of the meter's time in seconds since 1970")->capture_default_str();
    app.add_option("--romfs", setting.romfs, "Folder with the display's files (default: beside this program)")
        ->check(CLI::ExistingDirectory);
    app.add_option("--console", options.console, "File for what the display prints")->capture_default_str();
    CLI::Option* picture =
        app.add_option("--picture", options.picture, "Write what the panel shows; - is standard output");
    CLI::Option* all = app.add_option("--all", options.all, "Write a picture of every screen into this folder");
    CLI::Option* record =
        app.add_option("--record", options.record, "Write everything that goes in and out into this file");
    CLI::Option* replay =
        app.add_option("--replay", options.replay, "Give a recording to the display and compare its frames");
    app.add_option("--seconds", options.seconds, "Length of a recording without a board")->capture_default_str();
    app.add_option("--script", options.script, "Control lines and \"press KEY\", each after its second")->needs(record);
    CLI::Option* board =
        app.add_option("--board", options.board, "Folder of a board that panel-emulator plays; runs in real time");
    app.add_option("--control", options.control, "Path of a socket that takes the meter's control lines")->needs(board);
    for (CLI::Option* one : {picture, all, record, replay})
        for (CLI::Option* other : {picture, all, record, replay})
            if (one != other) one->excludes(other);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kUsageError;
    }
    int status = 0;
    try {
        status = Run(options, {argv, argv + argc});
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "display-session: %s\n", error.what());
        status = kUsageError;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "display-session: %s\n", error.what());
        status = kFailed;
    }
    std::fflush(nullptr);
    std::_Exit(status);  // the display's tasks have no end
}
