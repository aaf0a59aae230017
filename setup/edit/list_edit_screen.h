#pragma once

#include "navigation/widgets/setup_vertical_list.h"
#include "setup/edit/edit_screen.h"

/// A screen that changes a setting by a list in which the middle soft keys select the item above or below. Each of them
/// is there as long as it has somewhere to go.
class ListEditScreen : public SEBC_setupEditBaseClass {
public:
    using SEBC_setupEditBaseClass::SEBC_setupEditBaseClass;

    void SoftKey2Action() override;
    void SoftKey3Action() override;

protected:
    virtual setupVerticalList& List() = 0;

    /// After another item was selected than by the keys.
    void EnableMoves();
};
