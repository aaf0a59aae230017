#include <fcntl.h>
#include <unistd.h>
#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

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
    const int output = ::dup(STDOUT_FILENO);
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

int Run(const Options& options) {
    const int output = SetConsoleAside(options.console);
    if (!options.picture.empty()) TakePicture(options, output);
    if (!options.all.empty()) TakeAll(options);
    if (!options.record.empty()) session::Record(options);
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
        status = Run(options);
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
