#include <algorithm>
#include <optional>
#include <set>

#include "localization/display_config.h"
#include "simulator/bench/meter_texts.h"
#include "tests/bench/test_on.h"
#include "tools/formats/utf.h"
#include "tools/panel_tour/panel_tour.h"
#include "tools/text_places/known_texts.h"

namespace {

/// Every picture of the panel in one language: no text is cut, covered, over another or without its glyphs.
class LayoutAudit : public TestOn<PanelTour> {
protected:
    void Audit(std::uint32_t language) {
        m_known.emplace(language);
        DISPCFG_setLanguage(language);
        VisitEverything();
        VisitEverySet();
        TurnEveryPage();
        AskAboutEveryChoice();
        meter().FallSilent();
        VisitEveryScreen();
        meter().Recover();
        m_meter = MeterTexts::WideFigures;
        WidenEveryValue();
        VisitEveryScreen();
        m_meter = MeterTexts::FullFields;
        FillEveryText();
        VisitEveryScreen();
        EmptyEveryReply();
        VisitEveryScreen();
        std::printf("%d pictures, %d texts\n", m_pictures, m_count);
        for (const auto& [finding, places] : m_findings) {
            std::string where;
            for (const std::string& place : places) where += ", " + place;
            ADD_FAILURE() << finding << " on " << where.substr(2);
        }
    }

    void Look(const std::string& place) override {
        ++m_pictures;
        for (const RecordedText& text : Record().Texts()) {
            if (text.IsElsewhere() || (text.IsGone() && !text.IsClipped())) continue;
            ++m_count;
            Judge(text, place);
        }
    }

private:
    /// What the meter's own texts are like in a round through the screens.
    enum class MeterTexts { Usual, WideFigures, FullFields };

    void Judge(const RecordedText& text, const std::string& place) {
        const bool isOurs = !m_known->Find(text.text).empty();
        if (text.lacksGlyph) Report(text, "lacks a glyph", place);
        for (const std::size_t index : text.hits) {
            const RecordedText& other = Record().Texts()[index];
            if (!other.IsGone()) Report(text, "stands on " + Named(other), place);
        }
        if (IsSeparator(text.text) || (!isOurs && IsCutByDesign(text.text))) return;
        // Behind a dialog a dimmed text may end at the dialog's frame.
        if (text.IsPaintedOver() && !text.isBehind) Report(text, "is covered", place);
        if (text.IsClipped() && !text.IsPartlyScrolled()) Report(text, "is clipped", place);
        if (text.LeavesItsRoom()) Report(text, "leaves its room", place);
        if (isOurs || text.text.size() < kShortest) return;
        const auto wholes = m_known->Longer(text.text);
        if (!wholes.empty() && !GoesOnBelow(text, wholes)) {
            Report(text, "is shortened from \"" + ToUtf8(wholes.front()) + "\"", place);
        }
    }

    /// The end of one of the whole texts stands in the same place, on a line of its own.
    bool GoesOnBelow(const RecordedText& text, const std::vector<std::u16string>& wholes) const {
        return std::ranges::any_of(Record().Texts(), [&](const RecordedText& other) {
            return other.room == text.room && other.ink.top > text.ink.bottom &&
                   std::ranges::any_of(wholes, [&](const auto& whole) { return whole.ends_with(other.text); });
        });
    }

    /// In a number that is edited, a separator has a quarter of its width, so that the figures stand together.
    static bool IsSeparator(const std::u16string& text) { return text == u"." || text == u":"; }

    /// No real name is as long as its field, and a figure that fits in no font of its place is framed, so that nobody
    /// takes it for a smaller one.
    bool IsCutByDesign(const std::u16string& text) const {
        const bool isFigure = text.front() == u'-' || (text.front() >= u'0' && text.front() <= u'9');
        return m_meter == MeterTexts::FullFields || (m_meter == MeterTexts::WideFigures && isFigure);
    }

    std::string Named(const RecordedText& text) const {
        std::string name = "\"" + ToUtf8(text.text) + "\"";
        for (const std::uint32_t number : m_known->Find(text.text)) name += " " + std::to_string(number);
        return name;
    }

    void Report(const RecordedText& text, const std::string& what, const std::string& place) {
        m_findings[Named(text) + " (" + std::to_string(text.width) + " of " + std::to_string(text.room.Width()) +
                   " pixels) " + what]
            .insert(place);
    }

    static constexpr std::size_t kShortest = 5;  // characters of what may be the beginning of a longer text

    std::optional<KnownTexts> m_known;
    std::map<std::string, std::set<std::string>> m_findings;
    MeterTexts m_meter = MeterTexts::Usual;
    int m_pictures = 0;
    int m_count = 0;
};

TEST_F(LayoutAudit, FindsNothingInEnglish) { Audit(0); }
TEST_F(LayoutAudit, FindsNothingInGerman) { Audit(1); }
TEST_F(LayoutAudit, FindsNothingInFrench) { Audit(2); }
TEST_F(LayoutAudit, FindsNothingInSpanish) { Audit(3); }
TEST_F(LayoutAudit, FindsNothingInItalian) { Audit(4); }
TEST_F(LayoutAudit, FindsNothingInRussian) { Audit(5); }

}  // namespace
