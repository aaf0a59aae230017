#include "tools/gallery/page.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>The panel, screen by screen</title>
<style>
body { font: 14px sans-serif; margin: 0 16px 64px; color: #222; background: #e6ebef; }
header { position: sticky; top: 0; padding: 8px 0; background: #e6ebef; border-bottom: 1px solid #a5aeb5; }
header h1 { font-size: 18px; margin: 0 0 4px; }
header label { display: inline-block; margin-right: 10px; }
h2 { margin: 32px 0 8px; scroll-margin-top: 110px; }
.row { display: flex; gap: 12px; overflow-x: auto; padding: 6px 0; scroll-margin-top: 110px; }
.name { flex: 0 0 150px; }
figure { margin: 0; flex: 0 0 320px; scroll-margin-top: 110px; }
figure img { display: block; border: 1px solid #7b868c; }
figcaption { margin-top: 2px; color: #4a555c; }
a { color: #10416b; text-decoration: none; }
a:hover { text-decoration: underline; }
:target { background: #dee7f7; }
.off { display: none; }
.sheets img { max-width: 100%; border: 1px solid #7b868c; background: #fff; }
</style>
</head>
<body>
)";

constexpr std::string_view kScript = R"(<script>
// Each box hides what has its class.
for (const box of document.querySelectorAll("header input")) {
    box.addEventListener("change", () => {
        for (const thing of document.querySelectorAll("." + box.value)) thing.classList.toggle("off", !box.checked);
    });
}
</script>
</body>
</html>
)";

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

std::string Words(std::string name) {
    std::ranges::replace(name, '-', ' ');
    return name;
}

/// All pictures of all languages, family by family; what only some languages have stands where they have it.
class Rows {
public:
    explicit Rows(std::span<const LanguageCaptions> languages) {
        for (const LanguageCaptions& of : languages) {
            for (const Caption& caption : of.captions) {
                Family& family = FamilyOf(caption.family);
                auto& cells = m_cells[caption.name];
                if (cells.empty()) family.names.push_back(caption.name);
                cells[of.language.code] = &caption;
            }
        }
    }

    struct Family {
        std::string name;
        std::vector<std::string> names;  // of pictures
    };
    const std::vector<Family>& Families() const { return m_families; }
    const Caption* Find(const std::string& name, const std::string& language) const {
        const auto& cells = m_cells.at(name);
        const auto found = cells.find(language);
        return found == cells.end() ? nullptr : found->second;
    }

private:
    Family& FamilyOf(const std::string& name) {
        const auto found = std::ranges::find(m_families, name, &Family::name);
        if (found != m_families.end()) return *found;
        m_families.push_back({name, {}});
        return m_families.back();
    }

    std::vector<Family> m_families;
    std::map<std::string, std::map<std::string, const Caption*>> m_cells;  // by picture and language
};

void Box(std::ostream& page, const std::string& kind, const std::string& text) {
    page << "<label><input type=\"checkbox\" checked value=\"" << kind << "\"> " << Escaped(text) << "</label>\n";
}

void Row(std::ostream& page, const std::string& name, const Rows& rows, std::span<const LanguageCaptions> languages) {
    page << "<div class=\"row\" id=\"" << name << "\"><div class=\"name\"><a href=\"#" << name << "\">" << Words(name)
         << "</a></div>\n";
    for (const LanguageCaptions& of : languages) {
        const std::string& code = of.language.code;
        const Caption* caption = rows.Find(name, code);
        if (caption == nullptr) continue;
        const std::string id = name + "." + code;
        const std::string file = code + "/" + name + ".png";
        page << "<figure class=\"l-" << code << "\" id=\"" << id << "\"><a href=\"" << file << "\"><img src=\"" << file
             << "\" width=\"320\" height=\"240\" loading=\"lazy\" alt=\"" << Escaped(caption->title)
             << "\"></a><figcaption><a href=\"#" << id << "\">" << code << "</a> " << Escaped(caption->title)
             << "</figcaption></figure>\n";
    }
    page << "</div>\n";
}

/// The pictures of a folder beside the page, by name.
std::vector<std::string> PicturesIn(const std::filesystem::path& folder, const std::string& prefix) {
    std::vector<std::string> names;
    if (!std::filesystem::exists(folder)) return names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(prefix)) names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
}

void Sheets(std::ostream& page, const std::filesystem::path& folder) {
    if (!std::filesystem::exists(folder / "bitmaps/sheet.png")) return;
    page << "<div class=\"sheets\">\n<h2 id=\"drawings\">Drawings</h2>\n<img src=\"bitmaps/sheet.png\" alt=\"All "
            "drawings with their numbers\">\n<h2 id=\"fonts\">Fonts</h2>\n";
    for (const std::string& name : PicturesIn(folder / "fonts", "font-")) {
        page << "<p><a href=\"fonts/" << name << "\">" << name << "</a></p>\n<img src=\"fonts/" << name
             << "\" loading=\"lazy\" alt=\"" << name << "\">\n";
    }
    page << "</div>\n";
}

}  // namespace

std::string GalleryPage(const std::filesystem::path& folder, std::span<const LanguageCaptions> languages) {
    const Rows rows(languages);
    std::ostringstream page;
    page << kHead << "<header><h1>The panel, screen by screen</h1>\n<div>";
    for (const LanguageCaptions& of : languages) Box(page, "l-" + of.language.code, of.language.name);
    page << "</div>\n<div>";
    for (const Rows::Family& family : rows.Families()) Box(page, "f-" + family.name, family.name);
    page << "<a href=\"#drawings\">drawings</a> <a href=\"#fonts\">fonts</a></div></header>\n";
    for (const Rows::Family& family : rows.Families()) {
        page << "<section class=\"f-" << family.name << "\"><h2 id=\"" << family.name << "\">" << family.name
             << "</h2>\n";
        for (const std::string& name : family.names) Row(page, name, rows, languages);
        page << "</section>\n";
    }
    Sheets(page, folder);
    page << kScript;
    return page.str();
}
