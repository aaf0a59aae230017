#include "navigation/widgets/soft_keys.h"

#include "navigation/geometry.h"

namespace {

constexpr std::uint32_t kKeyStyle = kStyleActive | 0x181;
constexpr std::uint32_t kEnabledStatus = 0x404;

constexpr int kQuarter = Share(kPanelWidth, 0.25);
constexpr int kLeftInset = Divided(kPanelWidth, 120.0);
constexpr int kUpperTop = Divided(kPanelHeight, 1.105);  // keys 1 and 2
constexpr int kLowerTop = Divided(kPanelHeight, 1.1);    // keys 3 and 4
constexpr std::array<PegRect, kSoftKeys> kPlaces = {
    RectOf(kLeftInset, kUpperTop, kQuarter - 1, kPanelHeight - 1),
    RectOf(kLeftInset + kQuarter, kUpperTop, 2 * kQuarter - 1, kPanelHeight - 1),
    RectOf(kLeftInset + 2 * kQuarter, kLowerTop, 3 * kQuarter - kLineThickness - 1, kPanelHeight - 1),
    RectOf(3 * kQuarter, kLowerTop, kPanelWidth - kLineThickness - 1, kPanelHeight - 1),
};
static_assert(kPlaces[0] == PegRect{2, 217, 79, 239} && kPlaces[1] == PegRect{82, 217, 159, 239});
static_assert(kPlaces[2] == PegRect{162, 218, 237, 239} && kPlaces[3] == PegRect{240, 218, 317, 239});

constexpr std::size_t kSecond = 1;
constexpr std::size_t kThird = 2;

}  // namespace

PegHolder<PegBitmapButton> SoftKeys::KeyAt(std::size_t key) {
    return PegHolder<PegBitmapButton>(kPlaces[key], 0U, 0U, 0U, std::uint16_t{0}, kKeyStyle);
}

void SoftKeys::AddTo(PegThing& screen) {
    for (auto& key : m_keys) key.AddTo(screen);
}

void SoftKeys::TakeOff() {
    for (auto& key : m_keys) key.TakeOff();
}

void SoftKeys::SetImage(std::size_t key, const drawScreenClass& scheme, KeyImage image) {
    const std::uint32_t normal = scheme.image(image, KeyLook::Normal);
    (*this)[key].SetBitmaps(normal, scheme.image(image, KeyLook::Pressed), normal,
                            scheme.image(image, KeyLook::Disabled));
}

void SoftKeys::Enable(std::size_t key, bool on) {
    PegBitmapButton& button = (*this)[key];
    if (button.IsActive() == on && button.HasStatus(kEnabledStatus) == on) return;
    if (on) {
        button.SetStyleBits(kStyleActive);
        button.SetStatusBits(kEnabledStatus);
    } else {
        button.ClearStyleBits(kStyleActive);
        button.ClearStatusBits(kEnabledStatus);
    }
    button.Invalidate();
}

SoftKeys::State SoftKeys::Save() {
    State state;
    for (std::size_t key = 0; key < kSoftKeys; ++key) {
        for (unsigned slot = 0; slot < state.bitmaps[key].size(); ++slot) {
            state.bitmaps[key][slot] = (*this)[key].BitmapNumber(slot);
        }
        state.enabled[key] = IsEnabled(key);
    }
    return state;
}

void SoftKeys::Restore(const State& state) {
    for (std::size_t key = 0; key < kSoftKeys; ++key) {
        const auto& [normal, pressed, current, disabled] = state.bitmaps[key];
        (*this)[key].SetBitmaps(normal, pressed, current, disabled);
        Enable(key, state.enabled[key]);
    }
}

void SoftKeys::Press(int keyCode) {
    if (keyCode == KEY_SOFT_2_3) {
        (*this)[kSecond].Press(keyCode);
        (*this)[kThird].Press(keyCode);
    } else if (const std::size_t key = SoftKeyOf(keyCode); key < kSoftKeys) {
        (*this)[key].Press(keyCode);
    }
}

void SoftKeys::Release(const PegMessage& message, int keyCode) {
    if (keyCode == KEY_SOFT_2_3) {
        (*this)[kSecond].Release(message);
        (*this)[kThird].Release(message);
    } else if (const std::size_t key = SoftKeyOf(keyCode); key < kSoftKeys) {
        (*this)[key].Release(message);
    }
}

void SoftKeys::ReleaseAll(const PegMessage& message) {
    for (auto& key : m_keys) key->Release(message);
}
