// The looks of a workbook's cells: fonts, colours and cell formats, each kept once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "ui/ResultGrid.h"

namespace ssq::xls {

class RecordWriter;

// How a cell looks in the sheet.
struct CellFormat {
    CellStyle style;  // an empty font name and size 0 stand for the sheet's own font
    Align alignment = Align::kGeneral;
    bool wholeNumber = false;  // all digits, where the general form would use an exponent
    std::optional<Rgb> lines;  // thin lines around the cell

    auto operator<=>(const CellFormat&) const = default;
};

// The sheet's own font. Column widths count in its digits, which are 6 pixels wide at 96 dpi.
inline constexpr const char* kSheetFont = "宋体";
inline constexpr int kSheetFontPoints = 9;
inline constexpr int kSheetDigitPixels = 6;

// The number of the format of cells that have none.
inline constexpr std::uint16_t kPlainFormat = 15;

class StyleTable {
  public:
    StyleTable();

    // The number of the cell format. The file has room for 56 colours (further ones become the
    // nearest of those), 512 fonts and 4,000 formats (further ones become the sheet's own).
    std::uint16_t Index(const CellFormat& format);

    // The number of a colour in the palette.
    std::uint16_t ColourIndex(Rgb colour);

    // FONT, XF, STYLE and PALETTE records.
    void Write(RecordWriter& writer) const;

  private:
    struct Font {
        std::string name;
        int points = 0;
        bool bold = false;
        std::uint16_t colour = 0;

        auto operator<=>(const Font&) const = default;
    };

    // A cell format with everything resolved to numbers of the file.
    struct Xf {
        std::uint16_t font = 0;
        std::uint16_t number = 0;
        std::uint8_t alignment = 0;
        std::optional<std::uint16_t> fill;
        std::optional<std::uint16_t> lines;

        auto operator<=>(const Xf&) const = default;
    };

    std::uint16_t FontIndex(const CellStyle& style);
    std::uint16_t XfIndex(const Xf& xf);
    static void WriteFont(RecordWriter& writer, const Font& font);
    static void WriteXf(RecordWriter& writer, const Xf& xf, bool isStyle);

    std::vector<Rgb> palette_;
    std::map<Rgb, std::uint16_t> colourIndex_;
    std::vector<Font> fonts_;
    std::map<Font, std::uint16_t> fontIndex_;
    std::vector<Xf> xfs_;
    std::map<Xf, std::uint16_t> xfIndex_;
    std::map<CellFormat, std::uint16_t> formatIndex_;
};

}  // namespace ssq::xls
