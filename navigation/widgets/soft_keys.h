#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "navigation/messages.h"
#include "navigation/widgets/draw_screen.h"
#include "peg/core/holder.h"
#include "peg/widgets/bitmap_button.h"

inline constexpr std::size_t kSoftKeys = 4;

/// The index of a soft key's code, or kSoftKeys for any other key.
constexpr std::size_t SoftKeyOf(int keyCode) {
    return keyCode >= KEY_SOFT_1 && keyCode <= KEY_SOFT_4 ? static_cast<std::size_t>(keyCode - KEY_SOFT_1) : kSoftKeys;
}

/// The row of four pictures along the bottom edge that stand over the panel's soft keys.
class SoftKeys {
public:
    PegBitmapButton& operator[](std::size_t key) { return *m_keys[key]; }

    void AddTo(PegThing& screen);
    void TakeOff();

    /// Gives a key the pictures of a scheme; or none.
    void SetImage(std::size_t key, const drawScreenClass& scheme, KeyImage image);
    void ClearImage(std::size_t key) { (*this)[key].SetBitmaps(0, 0, 0, 0); }

    /// A disabled key shows its third picture.
    void Enable(std::size_t key, bool on);
    bool IsEnabled(std::size_t key) { return (*this)[key].IsActive(); }

    /// What the keys show and which are in use, to be put back later.
    struct State {
        std::array<std::array<std::uint32_t, 4>, kSoftKeys> bitmaps{};
        std::array<bool, kSoftKeys> enabled{};
    };
    State Save();
    void Restore(const State& state);

    /// The look of the keys while the panel's are held; soft keys 2 and 3 together are both.
    void Press(int keyCode);
    void Release(const PegMessage& message, int keyCode);
    void ReleaseAll(const PegMessage& message);

private:
    static PegHolder<PegBitmapButton> KeyAt(std::size_t key);

    std::array<PegHolder<PegBitmapButton>, kSoftKeys> m_keys{KeyAt(0), KeyAt(1), KeyAt(2), KeyAt(3)};
};
