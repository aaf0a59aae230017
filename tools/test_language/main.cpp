#include <CLI/CLI.hpp>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "tools/catalogue/po_file.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/formats/utf.h"

namespace {

enum class Kind { Long, Numbers };

struct Options {
    std::filesystem::path texts;
    std::filesystem::path output;
    Kind kind = Kind::Long;
};

constexpr double kGrowth = 1.4;
constexpr std::u16string_view kPlain = u"AEIOUNCaeiounc";
constexpr std::u16string_view kAccented = u"ÅÉÎÖÜÑÇåéîöüñç";

/// "Voltage" becomes "Völtågé völ": accents at every height, and as much longer as a wordy language is.
std::u16string Longer(const std::u16string& text) {
    std::u16string longer = text;
    for (char16_t& letter : longer) {
        const auto at = kPlain.find(letter);
        if (at != std::u16string_view::npos) letter = kAccented[at];
    }
    const auto length = static_cast<std::size_t>(std::lround(static_cast<double>(text.size()) * kGrowth));
    if (longer.size() < length) longer += u' ';
    for (std::size_t at = 0; longer.size() < length; ++at) longer += longer[at];
    return longer;
}

std::string Quoted(const std::u16string& text) {
    std::string quoted = "\"";
    for (const char byte : ToUtf8(text)) {
        if (byte == '"' || byte == '\\') quoted += '\\';
        quoted += byte;
    }
    return quoted + '"';
}

void Run(const Options& options) {
    const PoFile base = ReadPoFile(options.texts);
    std::ostringstream file;
    file << "# Made from " << options.texts.filename().string() << " for tests; no panel gets it.\n"
         << "msgid \"\"\nmsgstr \"\"\n\"Language: " << (options.kind == Kind::Long ? "x-long" : "x-numbers")
         << "\\n\"\n"
         << "\"Content-Type: text/plain; charset=UTF-8\\n\"\n";
    for (const auto& [number, message] : base.messages) {
        const std::string digits = "#" + std::to_string(number);
        const std::u16string text = options.kind == Kind::Long ? Longer(message.base) : *ToUtf16(digits);
        file << "\nmsgctxt \"" << number << "\"\nmsgid " << Quoted(message.base) << "\nmsgstr " << Quoted(text) << '\n';
    }
    const std::string text = file.str();
    WriteFile(options.output, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Makes a language for tests from the base language's texts.", "test-language");
    app.add_option("texts", options.texts, "PO file of the base language")->required();
    app.add_option("-o,--output", options.output, "PO file to write")->required();
    const std::map<std::string, Kind> kinds{{"long", Kind::Long}, {"numbers", Kind::Numbers}};
    app.add_option("--kind", options.kind, "long (40 % longer, with accents) or numbers (each text is its number)")
        ->required()
        ->transform(CLI::CheckedTransformer(kinds).description(""));
    return RunProgram(app, argc, argv, [&] { Run(options); });
}
