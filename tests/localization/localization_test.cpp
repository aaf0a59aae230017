#include "localization/localization.h"

#include <stdlib.h>

#include "localization/display_config.h"
#include "localization/localization_file.h"
#include "peg/resources/resources.h"
#include "simulator/own_folder.h"
#include "tests/bench/file_builder.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

using Text = std::u16string_view;

/// A board whose localisation file a test makes up.
class Localization : public ToolkitTest {
protected:
    ~Localization() override { localizationClass::unload(); }

    void Use(const FileBuilder& file) {
        file.WriteTo(m_folder / "romfs/localization.dat");
        localizationClass::unload();
        localizationClass::load();
        Pump();
    }
    /// Numbers 0 to 5, two languages, one column of symbols and two of phase labels.
    static FileBuilder WholeFile() {
        const std::array<Text, 6> english{u"Voltage L1", u"Voltage A", u"Voltage R", u"U", u"V", u"Voltage L1"};
        const std::array<Text, 6> german{u"Spannung L1", u"Spannung A", u"Spannung R", u"", u"V (d)", u"doppelt"};
        FileBuilder file;
        file.StringTable(2, 6).Language(english).Language(german);
        file.U16(0xBEEF).U16(2).U16(1).U16(3).U16(4);
        file.U16(0xBEEF).U16(3).U16(2).U16(0).U16(1).U16(1).U16(77).U16(2).U16(2);
        return file;
    }
    static displayClass& Texts() { return displayClass::getInstance(); }
    static void Select(std::uint32_t phaseLabels, std::uint32_t measSymbols = 0) {
        DISPCFG_setPhaseLabels(phaseLabels);
        DISPCFG_setMeasSymbols(measSymbols);
        Texts().updateSettings();
    }

private:
    const OwnBoard m_folder{"localization"};
};

TEST_F(Localization, TranslatesByTextAndShowsTheBaseTextWhereThereIsNoOther) {
    localizationClass::unload();
    const char16_t* text = u"anything";
    EXPECT_EQ(Texts().translate(text), text) << "no file";
    Use(WholeFile());
    EXPECT_EQ(Texts().translate(text), text);
    EXPECT_EQ(Texts().translate(nullptr), nullptr);
    EXPECT_EQ(Text(Texts().translate(u"U", 1)), u"U") << "the language has no text for it";
    EXPECT_EQ(Text(Texts().translate(u"V", 9)), u"V") << "no such language";
    std::array<char16_t, 9> out;
    out.fill(u'x');
    EXPECT_EQ(Texts().translateInto("anything", out), 0U);
    EXPECT_EQ(Text(out.data()), u"anything");

    EXPECT_EQ(Text(Texts().translate(u"Voltage L1", 1)), u"Spannung L1") << "the lower of two numbers";
    EXPECT_EQ(Texts().translateInto("Voltage L1", out, 1), 1U);
    EXPECT_EQ(Text(out.data()), u"Spannung") << "cut to the room, and terminated";
}

TEST_F(Localization, IsReadByTheFirstThatIsAsked) {
    Use(WholeFile());
    localizationClass::unload();
    EXPECT_EQ(Text(localizationClass::getInstance().translate(u"V", 1)), u"V (d)");
    localizationClass::unload();
    EXPECT_EQ(Text(displayClass::getInstance().translate(u"V", 1)), u"V (d)");
    localizationClass::unload();
    EXPECT_EQ(Text(kernelDispClass::getInstance().translate(u"V", 1)), u"V (d)");
}

TEST_F(Localization, FindsAsManyTextsAsItsTableHoldsAndShowsTheOthersAsTheyAre) {
    constexpr unsigned kTexts = 8200;
    std::vector<std::u16string> english;
    for (unsigned i = 0; i < kTexts; ++i) english.push_back({u't', static_cast<char16_t>(0x100 + 2 * i)});
    const std::vector<Text> base(english.begin(), english.end());
    FileBuilder file;
    file.StringTable(2, kTexts).Language(base).Language(std::vector<Text>(kTexts, u"d"));
    Use(file);
    EXPECT_EQ(Text(Texts().translate(english[8190].c_str(), 1)), u"d");
    EXPECT_EQ(Text(Texts().translate(english[8191].c_str(), 1)), english[8191]);
    EXPECT_EQ((SubstitutionTable{2, 1, {3, 4}}.Replace(3, 2)), 3U) << "no such set";
}

TEST_F(Localization, SubstitutesLabelsAndThenSymbols) {
    Use(WholeFile());
    Select(1);
    EXPECT_EQ(Text(Texts().translate(u"Voltage L1")), u"Voltage L1") << "replaced by a number that is no string";
    Select(2, 1);
    EXPECT_EQ(Text(Texts().translate(u"Voltage L1")), u"Voltage R");
    EXPECT_EQ(Text(Texts().translate(u"U", 1)), u"V (d)");
}

TEST_F(Localization, OfTheKernelIsSelectedByItselfAndOnlyFromWhatTheFileHolds) {
    Use(WholeFile());
    kernelDispClass& texts = kernelDispClass::getInstance();
    for (const std::uint32_t beyond : {0U, 1U}) {
        texts.setLanguage(1 + beyond);
        texts.setMeasSymbols(1 + beyond);
        texts.setPhaseLabels(2 + beyond);
        EXPECT_EQ(Text(texts.translate(u"U")), u"V (d)");
        EXPECT_EQ(Text(texts.translate(u"Voltage L1")), u"Spannung R");
    }
}

TEST_F(Localization, TakesANewLanguageFromTheNextLookupOnAndRedraws) {
    Use(WholeFile());
    auto& window = AddNew<Recorder>(Manager());
    Use(WholeFile());
    EXPECT_EQ(window.Count(MSG_LANGUAGE), 1) << "also of what is loaded";
    window.received.clear();
    window.drawn.clear();
    DISPCFG_setLanguage(1);
    EXPECT_EQ(Text(Texts().translate(u"V")), u"V");
    EXPECT_EQ(Text(Texts().translate(u"V")), u"V (d)");
    Pump();
    EXPECT_EQ(window.Count(MSG_LANGUAGE), 1);
    EXPECT_EQ(window.drawn.size(), 1U);
    DISPCFG_setLanguage(9);
    Texts().updateSettings();
    EXPECT_EQ(Text(Texts().translate(u"V")), u"V") << "an index beyond the file is the base language";
}

TEST_F(Localization, ReadsTheTablesBehindBrokenStringsAndSkipsABrokenTable) {
    FileBuilder file = WholeFile();
    file.Content()[2] = 9;  // no string table
    Use(file);
    EXPECT_EQ(Text(Texts().translate(u"V", 1)), u"V");

    FileBuilder table;
    const std::array<Text, 3> english{u"a", u"b", u"c"};
    table.StringTable(1, 3).Language(english);
    table.U16(0xDEAD).U16(2).U16(1);  // no cells follow
    table.U16(0xBEEF).U16(2).U16(2).U16(0).U16(1).U16(1).U16(2);
    Use(table);
    Select(1, 1);
    EXPECT_EQ(Text(Texts().translate(u"a")), u"c") << "replaced again where a later column names the number";
}

TEST_F(Localization, SurvivesEveryCutAndEveryLieOfItsFile) {
    FileBuilder whole = WholeFile();
    for (std::size_t at = 0; at < whole.Content().size(); ++at) {
        FileBuilder cut = whole;
        cut.Content().resize(at);
        FileBuilder lie = whole;
        lie.Content()[at] ^= 0xFF;
        for (const FileBuilder& file : {cut, lie}) {
            Use(file);
            Select(1);
            EXPECT_NE(Texts().translate(u"Voltage L1", 1), nullptr);
        }
    }
}

TEST_F(Localization, TakesOverWhatTheMeterSelectsAsFarAsItAnswers) {
    DISPCFG_setLanguage(3);
    static std::vector<std::pair<int, int>> lines;
    DISPCFG_init({.readSelection =
                      [](std::uint32_t id, std::uint32_t& selected) {
                          selected = id == 2062 ? 2 : 1;
                          return id == 1914 ? -1 : 0;
                      },
                  .setOutputLine =
                      [](int line, int level) {
                          lines.emplace_back(line, level);
                          return 0;
                      }});
    EXPECT_EQ(DISPCFG_getLanguage(), 3U);
    EXPECT_EQ(DISPCFG_getPhaseLabels(), 2U);
    EXPECT_EQ(DISPCFG_getMeasSymbols(), 1U);
    EXPECT_EQ(lines, (std::vector<std::pair<int, int>>{{0, 0}, {1, 1}}));
}

}  // namespace
