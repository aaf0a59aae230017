#include <CLI/CLI.hpp>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "navigation/menu_trees.h"
#include "screens/base/screen_info_table.h"
#include "setup/edit/choice_table.h"
#include "setup/edit/list_table.h"
#include "setup/edit/value_table.h"
#include "setup/view/setup_view_table.h"
#include "tools/catalogue/catalogue.h"
#include "tools/formats/file_bytes.h"
#include "tools/formats/program.h"
#include "tools/formats/utf.h"

namespace {

struct Options {
    std::vector<std::filesystem::path> texts;
    std::filesystem::path output;
};

/// Every screen that the meter may name, with its kind and its title in every language.
class ScreenList {
public:
    explicit ScreenList(const StringTable& texts) : m_texts(texts) {
        for (const Language& language : texts.languages) m_list["languages"].push_back(language.name);
    }

    void Add(std::int32_t screen, const char* kind, std::uint32_t title) {
        nlohmann::json titles;
        for (const Language& language : m_texts.languages) {
            const std::u16string& text = language.texts.at(title);
            titles.push_back(ToUtf8(text.empty() ? m_texts.languages.front().texts.at(title) : text));
        }
        m_list["screens"].push_back({{"id", screen}, {"kind", kind}, {"titles", titles}});
    }

    [[nodiscard]] std::string Text() {
        auto& screens = m_list["screens"];
        std::sort(screens.begin(), screens.end(), [](const auto& a, const auto& b) { return a["id"] < b["id"]; });
        return m_list.dump();
    }

private:
    const StringTable& m_texts;
    nlohmann::json m_list;
};

bool IsBuilt(std::int32_t screen) {
    return std::ranges::count(kChoiceRows, screen, &ChoiceRow::screen) +
               std::ranges::count(kValueRows, screen, &ValueRow::screen) +
               std::ranges::count(kListRows, screen, &ListRow::screen) !=
           0;
}

/// A menu has no title of its own: it is called as the items that lead to it.
void AddMenus(ScreenList& list) {
    for (std::int32_t mode = 0; mode < kDisplayModes; ++mode) {
        const std::int32_t menu = MenuOfMode(mode);
        for (const MenuTree& tree : kMenuTrees) {
            const auto item = std::ranges::find(tree.items, menu, &MenuItem::target);
            if (item == tree.items.end()) continue;
            list.Add(menu, "menu", static_cast<std::uint32_t>(item->label));
            break;
        }
    }
}

void Write(const Options& options) {
    const StringTable texts = Catalogue(options.texts).Table("panel texts");
    ScreenList list(texts);
    AddMenus(list);
    for (const ScreenInfoRow& row : kScreenInfoRows)
        list.Add(row.screen, "data", static_cast<std::uint32_t>(row.title));
    for (const SetupViewRow& row : kSetupViewRows) list.Add(row.screen, "settings", row.title);
    for (const SetupEditRow& row : kSetupEditRows)
        if (IsBuilt(row.screen)) list.Add(row.screen, "edit", row.title);
    const std::string text = list.Text();
    WriteFile(options.output, std::vector<std::uint8_t>(text.begin(), text.end()));
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Lists the screens of the panel with their titles, as JSON.", "screen-list");
    app.add_option("texts", options.texts, "PO files, the base language first")->required();
    app.add_option("-o,--output", options.output, "file to write")->required();
    return RunProgram(app, argc, argv, [&] { Write(options); });
}
