#pragma once

#include "navigation/widgets/soft_keys.h"
#include "peg/core/window.h"

/// A screen over the whole panel: soft keys along the bottom edge, and an action for each of the panel's keys, which
/// runs when the key is released.
class KeyedScreen : public PegWindow {
public:
    KeyedScreen();

    virtual void SoftKey1Action() {}
    virtual void SoftKey2Action() {}
    virtual void SoftKey3Action() {}
    virtual void SoftKey4Action() {}
    virtual void HomeKeyAction() {}
    virtual void SoftKey23Action() {}

protected:
    void RunKeyAction(int keyCode);

    SoftKeys m_keys;
};
