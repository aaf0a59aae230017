#include "tools/gallery/pictures.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "localization/display_config.h"
#include "screens/extremes/extremes_tables.h"
#include "screens/io/io_table.h"
#include "tools/formats/utf.h"
#include "tools/panel_tour/panel_tour.h"

namespace {

constexpr int kTitleTop = 25;
constexpr int kTitleBottom = 55;

/// Data screens that look alike and have no table of their own to be found in.
struct FamilyRow {
    std::string_view family;
    std::int32_t first;
    std::int32_t last;
};
// clang-format off
constexpr auto kFamilies = std::to_array<FamilyRow>({
    {.family = "alarms",    .first = 7,  .last = 10},
    {.family = "harmonics", .first = 61, .last = 67},
    {.family = "phasors",   .first = 68, .last = 68},
    {.family = "events",    .first = 69, .last = 70},
    {.family = "nameplate", .first = 98, .last = 98},
});
// clang-format on

bool StandsIn(const auto& rows, std::int32_t id) {
    return std::ranges::any_of(rows, [id](const auto& row) { return row.screen == id; });
}

std::string_view FamilyOf(std::int32_t id) {
    switch (navigationHandlerClass::getInstance().getScreenKind(id)) {
        case SCREEN_KIND_MENU: return "menus";
        case SCREEN_KIND_SETUP_VIEW: return "settings";
        case SCREEN_KIND_SETUP_EDIT: return "edit";
        case SCREEN_KIND_FACTORY_TEST: return "test";
        case SCREEN_KIND_DATA: break;
    }
    const auto found =
        std::ranges::find_if(kFamilies, [id](const FamilyRow& row) { return row.first <= id && id <= row.last; });
    if (found != kFamilies.end()) return found->family;
    if (StandsIn(kExtremesRows, id) || StandsIn(kBarScreenRows, id)) return "extremes";
    return StandsIn(kIoScreenRows, id) ? "inputs" : "values";
}

/// Somebody with a camera on the tour.
class Photographer : public PanelTour {
public:
    explicit Photographer(bool ofTests) {
        if (ofTests) SpeakTestLanguages();
    }

    std::vector<PanelPicture> Walk(std::uint32_t language) {
        DISPCFG_setLanguage(language);
        VisitEveryScreen();
        ChangeEverySetting();
        PressEveryKey();
        ShowEveryHeader();
        OpenEveryMenu();
        OpenEveryDialog();
        return std::move(m_pictures);
    }

private:
    void Look(const std::string& place) override {
        std::vector<std::uint16_t> pixels = Frame();
        if (!m_seen.insert(pixels).second) return;
        std::string name = place;
        std::ranges::replace(name, ' ', '-');
        const int count = ++m_counts[name];
        if (count > 1) name += "-" + std::to_string(count);
        const bool isScreen =
            place.starts_with("screen ") || place.starts_with("menu ") || place.starts_with("display test");
        const std::string_view family = isScreen                       ? FamilyOf(Navigation().getCurrentScreenId())
                                        : place.starts_with("header ") ? "headers"
                                                                       : "dialogs";
        m_pictures.push_back({name, std::string(family), Title(), std::move(pixels)});
    }

    /// The text on the band of the accent.
    std::string Title() const {
        for (const RecordedText& text : Record().Texts()) {
            const bool isOnBand = text.room.top >= kTitleTop && text.room.bottom <= kTitleBottom;
            if (isOnBand && !text.IsGone()) return ToUtf8(text.text);
        }
        return {};
    }

    std::vector<PanelPicture> m_pictures;
    std::set<std::vector<std::uint16_t>> m_seen;
    std::map<std::string, int> m_counts;  // of pictures, by name
};

}  // namespace

std::vector<PanelPicture> TakePictures(std::uint32_t language, bool ofTests) {
    return Photographer(ofTests).Walk(language);
}
