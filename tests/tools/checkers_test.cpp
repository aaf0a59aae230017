#include <gtest/gtest.h>

#include <set>

#include "tests/tools/workshop.h"

namespace {

using TextChecker = Workshop;

TEST_F(TextChecker, NamesEachFaultByItsStringAndNoneOfAGoodTranslation) {
    Write("en.po", PoFile("en", Entry(100, "Power", "Power") + Entry(101, "at %d kW", "at %d kW") +
                                    Entry(102, "Outside 4/6 %", "Outside 4/6 %") + Entry(103, "Fuse", "Fuse") +
                                    Entry(104, "Fuse", "Fuse")));
    Write("glossary.json", R"({"languages": ["de"], "units": ["kW"], "terms": [
        {"en": "power", "de": ["Leistung"], "avoid": {"de": ["Macht"]}}]})");
    // The checks that a German does not pass, each with its string: "101 placeholder".
    using Names = std::set<std::string>;
    const auto faults = [this](const std::string& german) {
        Write("de.po", PoFile("de", german));
        const Outcome run =
            Call("text-checker", "en.po de.po --resources " ROMFS_DIR "/resources.pbr --glossary glossary.json --json");
        Names names;
        for (const auto& fault : nlohmann::json::parse(run.output))
            names.insert(std::to_string(fault.at("string").get<int>()) + " " + fault.at("check").get<std::string>());
        EXPECT_EQ(run.status, names.empty() ? 0 : 1) << run.talk;
        return names;
    };
    constexpr const char* kSpot = "#. register label\n#. font 34, 40 px: screen 4 \"Main values\"\n";
    EXPECT_EQ(faults(Entry(100, "Power", "Leistung") + Entry(101, "at %d kW", "bei %d kW") +
                     Entry(102, "Outside 4/6 %", "Über 4/6 %") + Entry(103, "Fuse", "Sich.", kSpot) +
                     Entry(104, "Fuse", "Sich.")),
              Names{});
    EXPECT_EQ(
        faults(Entry(100, "Power", "Macht") + Entry(101, "at %d kW", "bei %s KW") +
               Entry(102, "Outside 4/6 %", "Über 4 %") + Entry(103, "Fuse", "Schmelzsicherung", kSpot) +
               Entry(105, "More", "Mehr")),
        (Names{"100 term", "101 placeholder", "101 term", "102 digits", "103 too-wide", "104 missing", "105 extra"}));
    EXPECT_EQ(faults(Entry(100, "Power", "Leistung") + Entry(101, "at %d kW", "") +
                     Entry(102, "Outside 6/4 %", "Über 6/4 %") + Entry(103, "Fuse", "Sicherung☃", kSpot) +
                     Entry(104, "Fuse", "Schmelze")),
              (Names{"101 missing", "102 other-text", "103 too-wide", "103 no-glyph", "104 differs"}));
    EXPECT_EQ(faults(Entry(103, "Fuse", "Ein Titel von mehr als neunundzwanzig Zeichen", "#. title\n")),
              (Names{"100 missing", "101 missing", "102 missing", "103 too-long", "104 missing"}));
}

TEST_F(Workshop, MakesLanguagesForTests) {
    Write("en.po", PoFile("en", Entry(100, "Open \\\"me\\\"", "Open \\\"me\\\"")));
    ASSERT_EQ(Call("test-language", "en.po --kind long -o long.po").status, 0);
    EXPECT_NE(Read("long.po").find(R"(msgstr "Öpéñ \"mé\" Öpé")"), std::string::npos) << Read("long.po");
    ASSERT_EQ(Call("test-language", "en.po --kind numbers -o numbers.po").status, 0);
    ASSERT_EQ(Call("localization-compiler", "en.po long.po numbers.po -o out.dat").status, 0);
    const auto languages = Inspect("localization-inspector", "out.dat").at("strings").at("languages");
    EXPECT_EQ(languages.size(), 3U) << languages;
}

using AssetChecker = Workshop;

TEST_F(AssetChecker, ComparesNumbersWithTheirSources) {
    Write("assets/texts/en.po", PoFile("en", Entry(100, "Power", "Power") + Entry(101, "Said", "Said")));
    Write("assets/texts/substitutions.json",
          R"({"phaseLabels": {"sets": ["1"], "columns": []}, "measurementSymbols": {"sets": ["1"], "columns": []}})");
    std::filesystem::create_directories(At("assets/drawings"));
    Write("assets/bitmaps.json", R"({"folder": "drawings", "bitmaps": [], "softKeys": {"keys": []}})");
    Write("palette.json", R"({"colours": [{"number": 85, "name": "accent", "value": "#0000ff", "use": ""}]})");
    ASSERT_EQ(Call("resource-compiler", "--palette palette.json -o out.pbr").status, 0);
    const auto check = [this](const std::string& source) {
        Write("src/screen.cpp", source);
        return Call("asset-checker", "assets --resources out.pbr --sources src --meter src");
    };
    EXPECT_EQ(check("row{.label = 100}; say(\"Said\"); constexpr int kFrameColor = 85;").status, 0);
    const std::string missing = check(
                                    "row{.label = 100, .title = 102}; say(\"Said\"); constexpr int kFrameColor = 86; "
                                    "GetBitmap(70); SetFontNumber(40);  // 85")
                                    .output;
    for (const char* fault :
         {"string 102 has no", "colour 86 has no", "bitmap 70 has no", "font 40 has no", "colour 85 is used nowhere"})
        EXPECT_NE(missing.find(fault), std::string::npos) << fault << " in " << missing;
    EXPECT_NE(check("kFrameColor = 85").output.find("string 100 \"Power\" is used nowhere"), std::string::npos);
}

using Contrasts = Workshop;

TEST_F(Contrasts, KeepTheDesignSheetTrueAndEveryTextLegible) {
    const auto renew = [this](const std::string& ink, const std::string& options = "") {
        Write("palette.json", R"({"colours": [{"number": 1, "name": "ink", "value": ")" + ink +
                                  R"("}, {"number": 2, "name": "paper", "value": "#ffffff"}],
            "texts": [{"text": "ink", "on": ["paper"]}]})");
        return Call("contrast", "palette.json --sheet sheet.md" + options);
    };
    const std::string rest = "| text | contrast with its grounds |\n|---|\n| old |\n\nBetween.\n\n";
    Write("sheet.md", rest + "| number | name | colour | on white | on black | use |\n|---|\n| old |");
    EXPECT_EQ(renew("#000000", " --check").status, 1);
    EXPECT_EQ(renew("#000000").status, 0);
    EXPECT_EQ(Read("sheet.md"),
              "| text | contrast with its grounds |\n|---|---|\n| ink | paper 21.0 |\n\nBetween.\n\n"
              "| number | name | colour | on white | on black | use |\n|---|---|---|---|---|---|\n"
              "| 1 | ink | `#000000` | 21.0 | 1.0 |  |\n| 2 | paper | `#ffffff` | 1.0 | 21.0 |  |\n");
    EXPECT_EQ(renew("#000000", " --check").status, 0);
    EXPECT_EQ(renew("#400000", " --check").status, 1);
    const Outcome run = renew("#808080");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.talk.find("palette.json: /texts/0/on/0: \"ink\" is hard to read"), std::string::npos) << run.talk;
}

}  // namespace
