#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"
#include "simulator/bench/toolkit_bench.h"
#include "tests/fuzz/memory_board.h"
#include "tests/fuzz/target.h"

namespace {

constexpr const char* kPath = "/romfs/resources.pbr";
constexpr std::uint32_t kLanguages = 3;
constexpr std::uint32_t kStrings = 200;

/// Loads a resource file, and draws and looks up whatever it brought.
class Reader : public ToolkitBench {
public:
    void Read() {
        PegFile file;
        if (file.Open(kPath) && PegResources::LoadResourceFile(file, 0) == 1) {
            if (const PegResourceSet* set = PegResources::GetResourceSet(0)) {
                PegResources::InstallResourceSet(*set, false);
            }
        }
        Paint();
        for (std::uint32_t language = 0; language < kLanguages; ++language) {
            PegResources::SetLanguage(language);
            for (std::uint32_t number = 0; number < kStrings; ++number) {
                if (const char16_t* text = PegResources::GetString(number)) {
                    static_cast<void>(WidthOf(text, PegResources::GetFont(0)));
                }
            }
        }
        PegResources::Reset();
    }

private:
    /// All bitmaps, and a text in all fonts.
    void Paint() {
        Screen().BeginDraw(m_canvas, m_canvas.Real());
        for (std::uint32_t number = 0; number < PegResources::BitmapTableSize(); ++number) {
            if (const PegBitmap* bitmap = PegResources::GetBitmap(number)) {
                Screen().DrawBitmap(PointOf(-1, -1), bitmap);
                Screen().DrawBitmap(PointOf(300, 230), bitmap);
            }
        }
        const PegBrush brush{};
        for (std::uint32_t number = 0; number < PegResources::FontTableSize(); ++number) {
            if (const PegFont* font = PegResources::GetFont(number)) {
                Screen().DrawText(PointOf(-3, 5), u"Wg%1\u00E9\u0416\uFFFF", brush, font);
            }
        }
        Screen().EndDraw();
    }

    PegThing m_canvas{RectOf(0, 0, 319, 239)};
};

Reader* reader = nullptr;

}  // namespace

/// What is packed in the file may be a thousand times as long.
const MemoryBound kMemoryBound = {.bytes = 1024 * 1024, .perByte = 4 * 1040};

void Prepare() { reader = new Reader; }

void Take(std::span<const std::uint8_t> input) {
    PutOnBoard(kPath, input);
    reader->Read();
}
