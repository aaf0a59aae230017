#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "navigation/header.h"
#include "navigation/keyed_screen.h"
#include "navigation/widgets/draw_screen.h"
#include "screens/base/options_menu.h"
#include "screens/base/screen_info_table.h"
#include "screens/base/soft_key_table.h"

/// A screen with meter data: title band, soft keys, options menu and the one-second refresh that all have in common.
///
/// What a screen is called and where its keys lead stands in the tables, by its id. A derived screen adds its widgets
/// between header and soft keys and reads its data in `UpdateScreenData`, which runs on show and then every second
/// while the options menu is closed. Showing a data screen ends an open front-panel login. Toolkit task only; lives as
/// long as the process.
class DSBC_dataScrnBaseClass : public KeyedScreen {
public:
    explicit DSBC_dataScrnBaseClass(std::int32_t screenId);

    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

    virtual void UpdateScreenData() {}

    /// Runs on show and when the language changes, after the texts were translated again.
    virtual void InitScreenData() {}
    void SoftKey1Action() override;
    void SoftKey2Action() override;
    void SoftKey3Action() override;
    void SoftKey4Action() override;
    void HomeKeyAction() override;

    /// The title of a data screen. @return false, and -1, for any other id
    static bool GetScreenTitleId(std::int32_t screenId, std::int32_t& titleId);
    static bool IsDataScreen(std::int32_t screenId) { return IsDataScreenId(screenId); }

    std::int32_t ScreenId() const { return m_screenId; }

protected:
    enum class SuffixTranslation { TitleOnly, WholeTitle };

    /// Titles are cut after 29 characters. A negative number and a null suffix change nothing.
    void SetTitleById(std::int32_t stringNumber);
    void SetTitleText(std::string_view text);
    void SetTitleSuffix(const char16_t* suffix, SuffixTranslation translation);
    void RetranslateTexts();

    /// Gives a soft key (0 to 3) the bitmap of one of its looks.
    void SetSoftKeyImage(std::size_t key, unsigned slot, std::uint32_t bitmap) { m_keys[key].SetBitmap(slot, bitmap); }
    void SetSoftKeyImages(std::size_t key, KeyImage image) { m_keys.SetImage(key, m_scheme, image); }
    void ClearSoftKeyImages(std::size_t key) { m_keys.ClearImage(key); }
    void EnableSoftKey(std::size_t key, bool on) { m_keys.Enable(key, on); }
    std::uint32_t AccentColor() const { return m_scheme.colour(0); }
    bool IsOptionsMenuOpen() const { return m_menu.IsOpen(); }

private:
    void BuildSoftKeys();
    std::int32_t Target(std::size_t key) const { return m_keyRow != nullptr ? m_keyRow->targets[key] : kNoTarget; }
    void Follow(std::int32_t target);
    void ShowTitle(const char16_t* text, const char16_t* suffix = u"");
    void OpenMenu();
    void CloseMenu();
    void OnShow(const PegMessage& message);
    void OnHide(const PegMessage& message);
    void OnTimer(const PegMessage& message);
    void OnKeyUp(const PegMessage& message);

    std::int32_t m_screenId;
    const ScreenInfoRow* m_infoRow;
    const SoftKeyRow* m_keyRow;
    drawScreenClass m_scheme;
    const char16_t* m_title = nullptr;       // in the base language
    std::array<char16_t, 30> m_titleText{};  // as it is shown
    scrnHeader* m_header = nullptr;          // null on a screen that is in no table
    OptionsMenu m_menu;
};
