#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

#include "simulator/panel/board.h"
#include "simulator/panel/server.h"

namespace {

namespace fs = std::filesystem;

constexpr int kUsageError = 2;

struct Options {
    std::string board;
    int port = 8080;
    std::string meterControl;
    std::string romfs;
};

/// Shows `romfs` to the display as the board's own; takes the place of an earlier link, but not of a real folder.
void LinkRomfs(const Options& options) {
    const fs::path link = fs::path(options.board) / "romfs";
    if (fs::is_symlink(link)) fs::remove(link);
    fs::create_directories(options.board);
    fs::create_directory_symlink(fs::canonical(options.romfs), link);
}

/// Blocks the signals that end the program, for this thread and those that it will start.
sigset_t BlockEndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

void Run(const Options& options) {
    const sigset_t endSignals = BlockEndSignals();
    std::signal(SIGPIPE, SIG_IGN);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    panel::Board board(options.board);
    if (!options.romfs.empty()) LinkRomfs(options);
    const panel::Server server(board, options.port, options.meterControl);
    std::printf("panel-emulator: the board is %s\n", fs::canonical(options.board).c_str());
    std::printf("panel-emulator: the panel is at http://127.0.0.1:%d/\n", server.Port());
    int signal = 0;
    sigwait(&endSignals, &signal);
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Plays the board of the display, and shows the panel as a page on 127.0.0.1.");
    app.add_option("--board", options.board, "Folder of the board; made when missing")->required();
    app.add_option("--http", options.port, "Port of the page; 0 takes any that is free")
        ->check(CLI::Range(0, 65535))
        ->capture_default_str();
    app.add_option("--meter-control", options.meterControl, "Control socket of meter-simulator");
    app.add_option("--romfs", options.romfs, "Folder with the display's files, linked into the board")
        ->check(CLI::ExistingDirectory);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kUsageError;
    }
    try {
        Run(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "panel-emulator: %s\n", error.what());
        return 1;
    }
    return 0;
}
