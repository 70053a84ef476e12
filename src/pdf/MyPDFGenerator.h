#pragma once

#include "pdf/CapacityString.h"
#include "pdf/Geometry.h"
#include "pdf/PageRoles.h"
#include "platform/BinaryStream.h"
#include "platform/FolderItem.h"
#include "platform/Platform.h"
#include "platform/Turns.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace linealis {

/// Writes the only kind of file that the program makes: a PDF 1.4 file with one page, one compressed content
/// stream, and the standard Type 1 fonts.
///
/// Call order for a page: CreateNew, SetParameter, SetInfo, BeginPage, InitGraphics, any drawing operators,
/// EndPage, CloseFile, Delete. Drawing only appends text to a buffer in memory; CloseFile writes the whole file at
/// once. The same generator is used for every page of a window.
///
/// OpenFilename, SetDash, DrawRotatedText, FillCircle, HandleInTextMode, and HandleOutTextMode are tested, but no
/// current kind of paper calls them.
///
/// Coordinates are PDF points with the origin at the lower left corner of the page and y pointing up. Each line of
/// the content stream and of the file ends in one CR byte.
class MyPDFGenerator {
public:
    // Paper sizes in points.
    static constexpr std::int64_t letterWidth = 612, letterHeight = 792;
    static constexpr std::int64_t legalWidth = 612, legalHeight = 1008;
    static constexpr std::int64_t ledgerWidth = 1224, ledgerHeight = 792;
    static constexpr std::int64_t A0Width = 2380, A0Height = 3368;
    static constexpr std::int64_t A1Width = 1684, A1Height = 2380;
    static constexpr std::int64_t A2Width = 1190, A2Height = 1684;
    static constexpr std::int64_t A3Width = 842, A3Height = 1190;
    static constexpr std::int64_t A4Width = 595, A4Height = 842;
    static constexpr std::int64_t A5Width = 421, A5Height = 595;
    static constexpr std::int64_t A6Width = 297, A6Height = 421;
    static constexpr std::int64_t B5Width = 501, B5Height = 709;
    static constexpr std::int64_t p11x17width = 1224, p11x17height = 792;  // landscape, like ledger

    /// The largest content stream of a page: 1 GiB. A page with more is abandoned.
    static constexpr std::int64_t largestStream = std::int64_t{1} << 30U;

    FolderItem theFile;  ///< the file that CloseFile writes; set it before that call

    /// `theTurns` is called by the long loops. Drawing operators throw PageTooLarge when the content stream exceeds
    /// `theLargestStream` bytes.
    explicit MyPDFGenerator(Turns& theTurns, std::int64_t theLargestStream = largestStream);

    // The document, in calling order (MyPDFGenerator.cpp).

    /// Starts a new document. Always returns 0; a negative result is reserved for failure.
    int CreateNew();

    /// Has no effect: the metadata of the file is fixed.
    void SetParameter(std::string_view key, std::string_view value);
    /// Has no effect, like SetParameter.
    void SetInfo(std::string_view key, std::string_view value);

    /// Sets theFile. Always returns 0.
    int OpenFilename(const FolderItem& file);
    /// Sets the page size in points.
    void BeginPage(std::int64_t width, std::int64_t height);
    void InitGraphics() {}
    void EndPage() {}

    /// Compresses the page and writes the whole file, dated by the clock of the platform. If the file cannot be
    /// opened or written, reports that through the platform and leaves an existing file unchanged. Returns whether
    /// the file was written.
    bool CloseFile(Platform& platform);

    /// Writes to an open stream what CloseFile would write for a page with this content. Set the size with
    /// BeginPage first.
    void WriteFile(std::string_view content, const LocalTime& now, BinaryStream& stream);

    void Delete() {}

    /// Discards the page, the memory of its drawing, and a partly written file.
    void Discard();

    // Path operators (MyPDFGenerator_Path.cpp). Each appends its operator to the content stream, without checking
    // its arguments and without omitting redundant operators.

    /// Sets the color of strokes and fills. Channels range from 0 to 1.
    void SetRGBColor(double red, double green, double blue);
    /// Sets the color of strokes and fills. Each channel byte is divided by 255.
    void SetRGBColor(Color color);
    /// Sets the line width in points; 0 is the thinnest line of the device.
    void SetLineWidth(double width);
    /// Sets the line cap: 0 butt, 1 round, 2 square.
    void SetLineCap(double cap);
    void MoveTo(double x, double y);
    void LineTo(double x, double y);
    void Stroke();
    /// Multiplies all following coordinates, widths, and sizes; 1 is the true size.
    void Scale(double sx, double sy);
    /// Sets the dash pattern in points. A solid line if `on` and `off` are both 0, whatever `phase` is.
    void SetDash(std::int64_t on, std::int64_t off, std::int64_t phase);
    /// Fills the rectangle with the corners (x1, y1) and (x2, y2).
    void FillRect(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2);
    /// Fills the page with a color, which stays the current color. Does nothing if all channels are exactly 1.
    void SetBackgroundColor(double red, double green, double blue);
    void SetBackgroundColor(Color color);
    /// Strokes a line as a separate path.
    void StrokeLine(double x1, double y1, double x2, double y2);

    // Text, circles, and rotated shapes (MyPDFGenerator_Text.cpp). Text is UTF-8 and is converted to the encoding
    // of the fonts when it is written. Nothing is escaped: parentheses and backslashes go to the page unchanged.

    /// Always returns 0: a font requested by name is font number 0.
    std::int64_t FindFont(std::string_view name, std::string_view encoding, std::int64_t embed);
    /// Sets the font, by the number in its name on the page, and the size in points. Truncates the size to a whole
    /// number.
    void SetFont(std::int64_t number, double size);
    /// Returns the width of a text in points. Every character of every font counts as 600/1000 of the size.
    static double StringWidth(std::string_view text, std::int64_t font, std::int64_t size);
    /// Sets the position of the next text, in points.
    void SetTextPos(double x, double y);
    /// Shows the text at the text position in the current font.
    void Show(std::string_view text);
    void ShowFont(std::string_view text, std::int64_t font);
    /// Shows the text at (x, y), rotated by an angle in degrees. The text position is added in the rotated
    /// coordinate system.
    void ShowRotated(std::string_view text, double angle, double x, double y);
    /// Draws the text along a circle, centered on the angle in degrees, in font 0.
    void DrawRotatedText(std::string_view text, double centerX, double centerY, double radius, double angle,
                         std::int64_t size);
    /// Like DrawRotatedText, in the given font.
    void DrawRotatedTextFont(std::string_view text, double centerX, double centerY, double radius, double angle,
                             std::int64_t size, std::int64_t font);
    /// Strokes a circle. Center and radius in points.
    void DrawCircle(double x, double y, double r);
    /// Fills and strokes a circle.
    void FillCircle(double x, double y, double r);
    /// Fills a rectangle, rotated about its center by an angle in degrees.
    void FillRectRotated(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, double angle);
    /// Opens a text object if none is open, and sets the font.
    void HandleInTextMode();
    /// Closes the open text object, if any.
    void HandleOutTextMode();

    // Clipped lines (MyPDFGenerator_Clip.cpp).

    /// Returns the region of a point relative to the rectangle of the latest ClipLine, as a sum of 1 above, 2
    /// below, 4 right, and 8 left. A point on an edge counts as inside.
    int FindRegion(double x, double y) const;
    /// Strokes the part of the line inside the rectangle as a separate path, if any part is inside. An end that
    /// rounding would move back and forth at a corner is placed in the corner.
    void ClipLine(double x1, double y1, double x2, double y2, double left, double bottom, double width,
                  double height);

    // Building blocks of the file, for CloseFile and for the tests.

    /// Returns the low four bytes of the value in little-endian order.
    std::string AddFourBytes(std::uint64_t value);
    /// Appends text that was formatted elsewhere to the content stream. Throws PageTooLarge beyond the limit.
    void AddToStream(std::string_view text);
    /// Gives everything drawn from now on the role.
    void SetRole(Role role);
    /// Returns the roles of the content stream drawn so far.
    const PageRoles& Roles() const { return roles; }
    /// Returns the content stream drawn so far.
    std::string_view Stream() const { return streamC.View(); }
    /// Moves the content stream out; the generator starts over with an empty one.
    CapacityString TakeStream();

private:
    /// Appends a line to the content stream: the operands, each followed by a blank, and the operator.
    void AddLine(std::initializer_list<double> operands, std::string_view operation);
    /// Throws PageTooLarge if the content stream exceeds the limit.
    void LimitStream() const;
    void AddFontLine(std::int64_t font);
    void AddTextPositionLine();
    void AddTextLine(std::string_view text);
    void DrawCircularText(std::string_view text, double centerX, double centerY, double radius, double angle,
                          std::int64_t size, std::int64_t font);
    void AddCirclePath(double x, double y, double r);

    using Line = std::array<Point, 2>;
    /// Returns the intersection of the line with one edge of the clip rectangle, an edge that `region` lies outside
    /// of.
    Point CutLine(const Line& line, int region) const;
    /// Moves one end of the line, which lies in `region`, into the clip rectangle. Returns false if no part of the
    /// line is inside because this end and the other one, which lies in `otherRegion`, are outside on the same
    /// side.
    bool BringInside(Line& line, std::size_t end, int region, int otherRegion) const;

    CapacityString CompressedStream(std::string_view text);
    void WriteDocument(std::string_view streamData, const LocalTime& now);

    Turns& turns;
    std::int64_t mostStream;  ///< bytes

    BinaryStream b;
    CapacityString streamC;
    PageRoles roles;
    bool inTextMode = false;
    std::int64_t fontNum = 0;   ///< 0 to 14, the number in the font's name on the page
    std::int64_t fontSize = 0;  ///< whole points
    double textX = 0.0;
    double textY = 0.0;
    double clipMinX = 0.0;
    double clipMinY = 0.0;
    double clipMaxX = 0.0;
    double clipMaxY = 0.0;
    std::int64_t pageWidth = 0;
    std::int64_t pageHeight = 0;
};

}  // namespace linealis
