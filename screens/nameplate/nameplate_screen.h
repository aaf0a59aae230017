#pragma once

#include <array>

#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/data_prompt.h"
#include "peg/widgets/prompt.h"
#include "screens/base/data_screen.h"
#include "screens/nameplate/nameplate_pages.h"

/// Shows the texts of the meter's nameplate on pages of up to six rows, each a label and a field; soft keys 2 and 3
/// turn the pages.
///
/// Reads the whole nameplate once a second and with every page. While the meter is silent the labels stand alone. A
/// derived screen says which fields are on which page. Toolkit task only; lives as long as the process.
class nameplateScrnBaseClass : public DSBC_dataScrnBaseClass {
public:
    explicit nameplateScrnBaseClass(std::int32_t screenId);

    void SoftKey2Action() override;
    void SoftKey3Action() override;

protected:
    /// Reads the nameplate and shows the current one of the pages.
    void ShowPage(const NameplatePages& pages);

private:
    /// One row on the panel. Its prompts belong to the screen.
    struct Row {
        PegPrompt& label;
        dataPegPromptClass& value;
        ShownText<48> shownValue;
    };

    Row MakeRow(std::size_t row);
    void Fetch();
    void SetRow(std::size_t row, const NameplateRow& content);
    void ClearRow(std::size_t row);
    void TurnTo(std::size_t page);

    std::size_t m_page = 0;
    NameplateData m_data{};  // all zero after a failed call
    std::array<Row, kNameplateRows> m_rows;
};

/// The nameplate with every field.
class basicNameplateScrnClass : public nameplateScrnBaseClass {
public:
    using nameplateScrnBaseClass::nameplateScrnBaseClass;

    void UpdateScreenData() override { ShowPage(kBasicNameplatePages); }
};

/// The nameplate of meters that name no model.
class midNameplateScrnClass : public nameplateScrnBaseClass {
public:
    using nameplateScrnBaseClass::nameplateScrnBaseClass;

    void UpdateScreenData() override { ShowPage(kMidNameplatePages); }
};

/// Creates the nameplate screen and registers it with the navigation handler.
void CreateNameplateScreens();
