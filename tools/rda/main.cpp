#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "rda/frame.h"
#include "simulator/meter/wire/link_client.h"
#include "tools/rda/report.h"

namespace {

using namespace rda_command;

constexpr int kFailed = 1;
constexpr int kUsageError = 2;

struct Options {
    std::string host = rda::kLocalAddress;
    std::uint16_t port = 0;  // 0: that of the side which is called
    double timeout = 3.0;    // seconds
    bool json = false;
    std::string name;
    std::vector<std::string> arguments;
    double interval = 1.0;  // seconds
    int count = 0;          // 0: without end
};

/// Data; whoever reads the output sees it at once.
void Print(const std::string& text) {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stdout));
    std::fflush(stdout);
}

std::string OnlyLoopback(const std::string& host) {
    return host == "localhost" || host.starts_with("127.") ? std::string() : host + " is not on this machine";
}

meter::Json Call(const Options& options, const meter::Signature& call, std::uint16_t port) {
    const auto payload = meter::EncodeArguments(call, options.arguments);
    const std::uint32_t size = meter::ReplySize(call, payload);
    const std::string host = options.host == "localhost" ? rda::kLocalAddress : options.host;
    const auto patience =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(options.timeout));
    const auto reply =
        meter::CallOnce(host, options.port != 0 ? options.port : port, call.name, payload, size, patience);
    if (size == 0) std::fprintf(stderr, "rda: %s was sent; it has no reply\n", std::string(call.name).c_str());
    return meter::DecodeReply(call, reply);
}

void CallOnceAndPrint(const Options& options, std::span<const meter::Signature> calls, std::uint16_t port) {
    const meter::Json reply = Call(options, Named(calls, options.name), port);
    Print(options.json ? reply.dump(2) + "\n" : TextOf(reply));
}

void Watch(const Options& options) {
    const meter::Signature& call = Named(meter::MeterOperations(), options.name);
    auto due = std::chrono::steady_clock::now();
    for (int i = 0; options.count == 0 || i < options.count; ++i) {
        std::this_thread::sleep_until(due);
        due += std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(options.interval));
        const meter::Json reply = Call(options, call, rda::kMeterPort);
        if (options.json) {
            Print(reply.dump() + "\n");
        } else {
            Print((i > 0 ? "\n" : "") + TextOf(reply));
        }
    }
}

void List(const Options& options) {
    if (options.json) {
        const meter::Json both = {{"meter", ListAsJson(meter::MeterOperations())},
                                  {"display", ListAsJson(meter::DisplayCommands())}};
        Print(both.dump(2) + "\n");
        return;
    }
    Print(ListOf(meter::MeterOperations()) + "\n" + ListOf(meter::DisplayCommands()));
}

void Describe(const Options& options) {
    if (const meter::RecordLayout* record = meter::FindRecordLayout(options.name)) {
        Print(options.json ? DescriptionAsJson(*record).dump(2) + "\n" : DescriptionOf(*record));
        return;
    }
    std::vector<meter::Signature> all(meter::MeterOperations().begin(), meter::MeterOperations().end());
    all.insert(all.end(), meter::DisplayCommands().begin(), meter::DisplayCommands().end());
    const meter::Signature& call = Named(all, options.name);
    Print(options.json ? DescriptionAsJson(call).dump(2) + "\n" : DescriptionOf(call));
}

void AddCall(CLI::App& command, Options& options, const char* what) {
    command.add_option("name", options.name, what)->required();
    command.add_option("arguments", options.arguments, "Arguments; rda describe NAME names them");
    command.positionals_at_end(false);
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Calls the meter, and commands the display, over the link between them.");
    app.require_subcommand(1);
    app.fallthrough();
    app.add_option("--host", options.host, "Address of meter and display on this machine")
        ->check(OnlyLoopback)
        ->capture_default_str();
    app.add_option("--port", options.port, "Port to call (31415 the meter, 31416 the display)")
        ->check(CLI::Range(1, 65535));
    app.add_option("--timeout", options.timeout, "Seconds to wait for a step of a call")
        ->check(CLI::Range(0.001, 3600.0))
        ->capture_default_str();
    app.add_flag("--json", options.json, "Print JSON");
    app.footer("Exit status: 0 done, 1 the call failed, 2 the command line is wrong.");

    CLI::App& list = *app.add_subcommand("list", "Name every operation of the meter and command of the display");
    CLI::App& describe = *app.add_subcommand("describe", "Tell the arguments and the reply of a call, or a record");
    describe.add_option("name", options.name, "Operation, command or record")->required();
    CLI::App& call = *app.add_subcommand("call", "Call the meter and print its reply");
    AddCall(call, options, "Operation of the meter");
    CLI::App& watch = *app.add_subcommand("watch", "Call the meter again and again");
    AddCall(watch, options, "Operation of the meter");
    watch.add_option("--interval", options.interval, "Seconds between two calls")
        ->check(CLI::Range(0.01, 86400.0))
        ->capture_default_str();
    watch.add_option("--count", options.count, "Number of calls (default: until stopped)")->check(CLI::PositiveNumber);
    CLI::App& display = *app.add_subcommand("display", "Command the display and print its reply");
    AddCall(display, options, "Command of the display");
    std::string shell;
    CLI::App& completion =
        *app.add_subcommand("completion", "Print a completion script: source <(rda completion bash)");
    completion.add_option("shell", shell, "Shell")->required()->check(CLI::IsMember({"bash"}));

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kUsageError;
    }
    try {
        if (list) List(options);
        if (describe) Describe(options);
        if (call) CallOnceAndPrint(options, meter::MeterOperations(), rda::kMeterPort);
        if (watch) Watch(options);
        if (display) CallOnceAndPrint(options, meter::DisplayCommands(), rda::kDisplayPort);
        if (completion) Print(BashCompletion());
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "rda: %s\n", error.what());
        return kUsageError;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "rda: %s\n", error.what());
        return kFailed;
    }
    return 0;
}
