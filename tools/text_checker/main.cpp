#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "tools/catalogue/text_check.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/formats/source_error.h"

namespace {

struct Options {
    std::vector<std::filesystem::path> texts;
    std::filesystem::path resources;
    std::filesystem::path glossary;
    bool json = false;
};

TextRules RulesOf(const Options& options, std::optional<Glossary>& glossary) {
    TextRules rules;
    if (!options.glossary.empty()) rules.glossary = &glossary.emplace(options.glossary);
    if (options.resources.empty()) return rules;
    for (ResourceSet& set : ReadResourceFile(options.resources.string(), ReadFile(options.resources)).sets) {
        std::ranges::move(set.fonts, std::back_inserter(rules.fonts));
    }
    return rules;
}

void PrintJson(const std::vector<TextFault>& faults) {
    nlohmann::json list = nlohmann::json::array();
    for (const TextFault& fault : faults) {
        list.push_back({{"file", fault.file},
                        {"string", fault.number},
                        {"check", fault.check},
                        {"english", fault.english},
                        {"translation", fault.translation},
                        {"detail", fault.detail}});
    }
    std::cout << list.dump(2) << '\n';
}

void Print(const std::vector<TextFault>& faults) {
    for (const TextFault& fault : faults) {
        std::cout << fault.file << ": " << fault.check << ": string " << fault.number << " \"" << fault.english
                  << "\", \"" << fault.translation << "\", " << fault.detail << '\n';
    }
}

void Run(const Options& options) {
    std::optional<Glossary> glossary;
    const TextRules rules = RulesOf(options, glossary);
    const PoFile base = ReadPoFile(options.texts.front());
    std::vector<TextFault> faults;
    for (const auto& path : options.texts) {
        std::ranges::move(CheckTexts(base, ReadPoFile(path), rules), std::back_inserter(faults));
    }
    if (options.json) {
        PrintJson(faults);
    } else {
        Print(faults);
    }
    if (!faults.empty()) throw std::runtime_error(std::to_string(faults.size()) + " faults");
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app(
        "Looks for what is wrong with translations: missing and left-over texts, other placeholders, digits, units and "
        "terms than the English text has, and texts that are too wide for their places.",
        "text-checker");
    app.add_option("texts", options.texts, "PO files, the base language first")->required();
    app.add_option("--resources", options.resources, "the panel's resource file, whose fonts measure the texts");
    app.add_option("--glossary", options.glossary, "terms and units (JSON)");
    app.add_flag("--json", options.json, "print the faults as JSON");
    return RunProgram(app, argc, argv, [&] { Run(options); });
}
