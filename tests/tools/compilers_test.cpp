#include <gtest/gtest.h>

#include "peg/resources/resources.h"
#include "tests/tools/workshop.h"

namespace {

std::string Svg(int width, int height, const std::string& content) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(width) + "\" height=\"" +
           std::to_string(height) + "\">" + content + "</svg>";
}

constexpr const char* kAll =
    "--palette palette.json --fonts fonts.json --bitmaps bitmaps.json --texts en.po -o out.pbr ";

class Compilers : public Workshop {
protected:
    Compilers() {
        Write("palette.json", R"({"colours": [
            {"number": 85, "name": "accent", "value": "#0000ff"}, {"number": 150, "name": "far", "value": "#ff0000"},
            {"number": 7, "name": "pale", "value": "#808080"}]})");
        Write("fonts.json", R"({
            "faces": {"thin": "/usr/share/fonts/truetype/dejavu/DejaVuSansCondensed.ttf",
                      "wide": "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"},
            "fallback": "wide", "ranges": {"all": ["0030-0039", "0416", "E000"], "figures": ["0030-0039"]},
            "fonts": [{"number": 32, "size": 10, "face": "thin", "ranges": "all"},
                      {"number": 33, "size": 20, "face": "wide", "ranges": "figures"}]})");
        Write("bitmaps.json", R"({"folder": "drawings",
            "bitmaps": [{"numbers": [81, 82], "size": [6, 2], "drawing": "solid.svg"},
                        {"numbers": [90], "size": [4, 1], "drawing": "hole.svg"},
                        {"numbers": [91], "size": [4, 1], "drawing": "glass.svg"}],
            "softKeys": {"size": [9, 5], "accents": [85, 150], "held": 85, "outOfUse": 7,
                         "keys": [{"symbol": "dot.svg", "normal": [236, 0], "held": 201, "outOfUse": 78}]}})");
        Write("drawings/solid.svg", Svg(6, 2, R"(<rect class="fill-far" width="6" height="2"/>)"));
        Write("drawings/hole.svg", Svg(4, 1, R"(<rect x="1" class="fill-accent" width="3" height="1"/>)"));
        Write("drawings/glass.svg", Svg(4, 1, R"(<rect x="1" fill="#0f0" fill-opacity=".5" width="3" height="1"/>)"));
        Write("drawings/dot.svg", Svg(1, 5, R"(<rect fill="currentColor" width="1" height="5"/>)"));
        Write("en.po", PoFile("en", m_texts));
        Write("de.po", PoFile("de", m_german));
        Write("substitutions.json", R"({"phaseLabels": {"sets": ["1", "A"], "columns": [[100, 102]]},
            "measurementSymbols": {"sets": ["IEC"], "columns": []}})");
    }

    const std::string m_texts =
        Entry(3, "Below the toolkit's", "") + Entry(100, "Voltage", "") + Entry(102, "Power", "Power Ω");
    const std::string m_german = Entry(100, "Voltage", "Spannung");
};

TEST_F(Compilers, MakeWhatTheDisplayReadsInEitherOrderPackedOrNot) {
    for (const char* options : {"", "--uncompressed", "--byte-order big", "--byte-order big --uncompressed"}) {
        SCOPED_TRACE(options);
        PegResources::Reset();
        ASSERT_EQ(Call("resource-compiler", std::string(kAll) + options).status, 0);
        const std::string first = Read("out.pbr");
        ASSERT_EQ(Call("resource-compiler", std::string(kAll) + options).status, 0);
        EXPECT_EQ(Read("out.pbr"), first) << "the same bytes twice";
        ASSERT_EQ(Load(At("out.pbr")), 1);
        EXPECT_EQ(PegResources::GetColor(85), 0x001F);
        EXPECT_EQ(PegResources::GetColor(150), 0xF800);
        EXPECT_EQ(PegResources::GetString(100), std::u16string(u"Voltage"));
        EXPECT_EQ(PegResources::GetString(101), nullptr);
        EXPECT_EQ(PegResources::GetString(102), std::u16string(u"Power Ω"));
        const PegBitmap* solid = PegResources::GetBitmap(81);
        ASSERT_NE(solid, nullptr);
        EXPECT_EQ(solid->data[1], 0xF800) << "pixels stand in the file's order";

        EXPECT_EQ(HeightOf(PegResources::GetFont(32)), 12);
        EXPECT_EQ(HeightOf(PegResources::GetFont(33)), 24);
        EXPECT_GT(WidthOf(u"Ж", PegResources::GetFont(32)), 5);
        EXPECT_EQ(WidthOf(u"\uE000", PegResources::GetFont(32)), 0);
        EXPECT_EQ(WidthOf(u"Ж", PegResources::GetFont(33)), 0) << "not among its ranges";
        EXPECT_EQ(WidthOf(u"11111", PegResources::GetFont(33)), WidthOf(u"80356", PegResources::GetFont(33)));
    }
}

TEST_F(Compilers, GiveEveryPictureTheSmallestFormatThatShowsItAndComposeSoftKeysFromOneSymbol) {
    ASSERT_EQ(Call("resource-compiler", kAll).status, 0);
    ASSERT_EQ(Load(At("out.pbr")), 1);
    for (const std::uint32_t number : {82U, 90U, 91U, 236U, 201U, 78U})
        ASSERT_NE(PegResources::GetBitmap(number), nullptr) << number;
    const auto bitmaps = Inspect("resource-inspector", "out.pbr").at("sets").at(0).at("bitmaps");
    EXPECT_EQ(bitmaps.size(), 7U) << "with 81, and none for a scheme without this key";

    const PegBitmap* solid = PegResources::GetBitmap(82);
    EXPECT_EQ(solid->flags, PegBitmap::kRunLength);
    EXPECT_EQ(solid->data[0], 5);  // one run of six
    EXPECT_EQ(solid->data[1], 0xF800);
    const PegBitmap* hole = PegResources::GetBitmap(90);
    EXPECT_EQ(hole->flags & ~PegBitmap::kRunLength, PegBitmap::kTransparent);
    EXPECT_EQ(hole->transparent, kTransparentPixel);
    const PegBitmap* glass = PegResources::GetBitmap(91);
    EXPECT_EQ(glass->bitsPerPixel, 32);
    EXPECT_TRUE(glass->Has(PegBitmap::kAlpha));
    // Each row of the soft key: four white, the accent, four white.
    const std::uint16_t* row = PegResources::GetBitmap(236)->data;
    EXPECT_EQ(std::vector(row, row + 6), (std::vector<std::uint16_t>{3, 0xFFFF, 0x8000, 0x001F, 3, 0xFFFF}));
}

TEST_F(Compilers, PutTextsAndSubstitutionsIntoTheLocalisationFile) {
    const std::string both = "en.po de.po --substitutions substitutions.json -o l.dat --byte-order ";
    for (const char* order : {"little", "big"}) {
        SCOPED_TRACE(order);
        ASSERT_EQ(Call("localization-compiler", both + order).status, 0);
        const auto file = Inspect("localization-inspector", "l.dat");
        const auto& languages = file.at("strings").at("languages");
        ASSERT_EQ(languages.size(), 2U);
        EXPECT_EQ(languages[0].at("texts"),
                  (nlohmann::json{{"3", "Below the toolkit's"}, {"100", "Voltage"}, {"102", "Power Ω"}}));
        EXPECT_EQ(languages[1].at("texts"), (nlohmann::json{{"100", "Spannung"}}));
        EXPECT_EQ(file.at("phaseLabels"), nlohmann::json::parse("[[100], [102]]"));
        EXPECT_EQ(file.at("measurementSymbols"), nlohmann::json::parse("[[]]"));
    }
}

TEST_F(Compilers, NameFileAndPlaceOfEveryMistake) {
    struct Mistake {
        const char* file;
        std::string there;
        std::string written;
        const char* complaint;
    };
    const std::vector<Mistake> mistakes{
        {"palette.json", "\"far\",", "\"far\"", "palette.json:2: this is no JSON"},
        {"palette.json", "colours", "colors", "palette.json: \"colours\" is missing"},
        {"palette.json", "#0000ff", "red", "/colours/0/value: \"red\" is no colour"},
        {"palette.json", "150", "85", "/colours/1: this number stands twice"},
        {"palette.json", "85", "-1", "/colours/0/number: a number from 0"},
        {"fonts.json", "/usr/share/fonts/truetype/dejavu/DejaVuSansCondensed.ttf", "en.po", "cannot be read as a font"},
        {"fonts.json", "0030-0039", "39-30", "/ranges/all/0: \"39-30\" runs backwards"},
        {"fonts.json", "0416", "3G", "/ranges/all/1: \"3G\" is no range"},
        {"fonts.json", "33", "34", "/fonts/1: its number does not follow"},
        {"bitmaps.json", "[6, 2]", "[6, 3]", "/bitmaps/0: the drawing is 6 x 2"},
        {"bitmaps.json", "82", "81", "/bitmaps/0/numbers/1: this number stands twice"},
        {"bitmaps.json", "solid.svg", "none.svg", "none.svg: cannot be read"},
        {"bitmaps.json", "\"held\": 85", "\"held\": 86", "/softKeys/held: the palette has no such colour"},
        {"drawings/solid.svg", "</svg>", "", "solid.svg: "},
        {"drawings/solid.svg", "width=\"6\"", "width=\"0\"", "solid.svg: its width and height are no whole pixels"},
        {"en.po", "\"100\"", "\"12x\"", "en.po: \"12x\" is no string number"},
        {"en.po", "msgctxt \"100\"\n", "", "en.po: \"Voltage\" has no number"},
        {"en.po", "\"102\"", "\"100\"", "en.po: string 100 stands twice"},
        {"en.po", "Voltage", std::string(251, 'x'), "en.po: string 100 is longer than 250"},
        {"en.po", "\"3\"", "3", "en.po:6: "},
        {"en.po", "Language", "Dialect", "en.po:1: the header names no Language"},
        {"en.po", m_texts, "", "en.po: has no texts"},
    };
    for (const Mistake& mistake : mistakes) {
        SCOPED_TRACE(mistake.complaint);
        const std::string good = Read(mistake.file);
        std::string bad = good;
        Write(mistake.file, bad.replace(bad.find(mistake.there), mistake.there.size(), mistake.written));
        const Outcome run = Call("resource-compiler", kAll);
        EXPECT_EQ(run.status, 1);
        EXPECT_NE(run.talk.find(mistake.complaint), std::string::npos) << run.talk;
        EXPECT_FALSE(std::filesystem::exists(At("out.pbr")));
        Write(mistake.file, good);
    }
}

TEST_F(Compilers, RefuseTranslationsOfOtherTexts) {
    const auto expect = [this](const std::string& german, const char* complaint) {
        Write("de.po", PoFile("de", german));
        const Outcome run = Call("localization-compiler", "en.po de.po --substitutions substitutions.json -o l.dat");
        EXPECT_NE(run.talk.find(complaint), std::string::npos) << run.talk;
    };
    expect(m_german + Entry(7, "New", "Neu"), "de.po: string 7 has no base text");
    expect(m_german + Entry(102, "Old power", "Leistung"), "de.po: string 102 translates another text");
    Write("substitutions.json", R"({"phaseLabels": {"sets": ["1", "A"], "columns": [[100, 101]]},
        "measurementSymbols": {"sets": [], "columns": []}})");
    expect(m_german, "/phaseLabels/columns/0/1: string 101 is not in the catalogue");
}

TEST_F(Compilers, SayWhatIsWrongWithACommandLine) {
    for (const char* program :
         {"resource-compiler", "localization-compiler", "resource-inspector", "localization-inspector"}) {
        SCOPED_TRACE(program);
        EXPECT_EQ(Call(program, "--help").status, 0);
        EXPECT_NE(Call(program, "--help").output.find("--help"), std::string::npos);
        EXPECT_EQ(Call(program, "--nonsense").status, 2);
    }
    EXPECT_EQ(Call("resource-compiler", std::string(kAll) + "--byte-order middle").status, 2);
}

TEST_F(Compilers, MakeFilesOfWhichTheInspectorsTakeNoCutOrDamagedByteForMoreThanItIs) {
    ASSERT_EQ(Call("resource-compiler", kAll).status, 0);
    Write("packed.pbr", Read("out.pbr"));
    ASSERT_EQ(Call("resource-compiler", std::string(kAll) + "--uncompressed").status, 0);
    ASSERT_EQ(Call("localization-compiler", "en.po -o out.dat").status, 0);
    for (const auto& [program, file, all] : {std::tuple{"resource-inspector", "packed.pbr", " --fonts f --bitmaps b"},
                                             {"resource-inspector", "out.pbr", " --fonts f --bitmaps b"},
                                             {"localization-inspector", "out.dat", ""}}) {
        const std::string whole = Read(file);
        for (std::size_t size = 0; size < whole.size(); size += 1 + whole.size() / 40) {
            Write("cut", whole.substr(0, size));
            const Outcome run = Call(program, "cut");
            EXPECT_EQ(run.status, 1) << program << " takes " << size << " bytes of " << whole.size();
            EXPECT_NE(run.talk.find("cut: at byte "), std::string::npos) << run.talk;
        }
        for (std::size_t at = 0; at < whole.size(); at += 1 + whole.size() / 150) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(~damaged[at]);
            Write("damaged", damaged);
            const Outcome run = Call(program, std::string("damaged") + all);
            EXPECT_TRUE(run.status == 0 || run.status == 1) << program << " ends by a signal over byte " << at;
        }
        EXPECT_NE(Call(program, "missing").talk.find("missing: cannot be read"), std::string::npos);
    }
}

}  // namespace
