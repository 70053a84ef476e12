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

/// Writes the one kind of file the program makes: a PDF 1.4 file of one page, with one compressed content stream
/// and the standard Type 1 fonts.
///
/// The calling order for a page is CreateNew, SetParameter, SetInfo, BeginPage, InitGraphics, any drawing
/// operators, EndPage, CloseFile, Delete. Drawing only appends text to a buffer in memory; CloseFile writes the
/// file, in one go. A generator is used again for every page of its window.
///
/// No kind of paper calls OpenFilename, SetDash, DrawRotatedText, FillCircle, HandleInTextMode and
/// HandleOutTextMode: they are there for kinds to come, and tested.
///
/// Coordinates are PDF points, the origin at the lower left corner of the page, y upwards. A line of the content
/// stream and of the file ends in one CR byte.
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
    static constexpr std::int64_t p11x17width = 1224, p11x17height = 792;  // wider than high, as ledger is

    /// A page with more drawing than this is given up: 1 GiB.
    static constexpr std::int64_t largestStream = std::int64_t{1} << 30U;

    FolderItem theFile;  ///< the file that CloseFile writes; must be set by then

    /// `theTurns` are those of its long loops. A page with more bytes of drawing than `theLargestStream` is given
    /// up.
    explicit MyPDFGenerator(Turns& theTurns, std::int64_t theLargestStream = largestStream);

    // The document, in calling order (MyPDFGenerator.cpp).

    /// Starts a new document. Returns 0; a negative result would mean that none can be started.
    int CreateNew();

    /// Has no effect: what the file says about itself is fixed.
    void SetParameter(std::string_view key, std::string_view value);
    /// Has no effect, like SetParameter.
    void SetInfo(std::string_view key, std::string_view value);

    int OpenFilename(const FolderItem& file);
    void BeginPage(std::int64_t width, std::int64_t height);
    void InitGraphics() {}
    void EndPage() {}

    /// Compresses the page and writes the whole file, dated by the platform's clock. If it cannot be opened or
    /// written, says so through the platform and leaves an existing file as it was. Returns whether it was written.
    bool CloseFile(Platform& platform);

    /// Writes what CloseFile would write of a content that was drawn before, to an open stream.
    void WriteFile(std::string_view content, const LocalTime& now, BinaryStream& stream);

    void Delete() {}

    /// Gives up the page, the memory that its drawing took and a file that is half written.
    void Discard();

    // Path operators (MyPDFGenerator_Path.cpp). They check nothing and leave out nothing.

    /// Channels from 0 to 1. Sets the colors of strokes and fills together.
    void SetRGBColor(double red, double green, double blue);
    /// The channels' bytes, each divided by 255.
    void SetRGBColor(Color color);
    void SetLineWidth(double width);
    void SetLineCap(double cap);
    void MoveTo(double x, double y);
    void LineTo(double x, double y);
    void Stroke();
    void Scale(double sx, double sy);
    /// `on` and `off` both 0 give a solid line, whatever `phase` says.
    void SetDash(std::int64_t on, std::int64_t off, std::int64_t phase);
    void FillRect(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2);
    /// Fills the page with a color, which then stays set. Does nothing if all channels are exactly 1.
    void SetBackgroundColor(double red, double green, double blue);
    void SetBackgroundColor(Color color);
    /// A line as a path of its own.
    void StrokeLine(double x1, double y1, double x2, double y2);

    // Text, circles and rotated shapes (MyPDFGenerator_Text.cpp). Text is UTF-8 and is converted to the fonts'
    // encoding at the last moment. Nothing is escaped: a parenthesis or a backslash goes to the page as it is.

    /// Returns 0 whatever it is asked for: a font asked for by name is font number 0.
    std::int64_t FindFont(std::string_view name, std::string_view encoding, std::int64_t embed);
    /// The size is truncated to a whole number.
    void SetFont(std::int64_t number, double size);
    /// Points. Every character of every font counts as 600/1000 of the size.
    static double StringWidth(std::string_view text, std::int64_t font, std::int64_t size);
    void SetTextPos(double x, double y);
    void Show(std::string_view text);
    void ShowFont(std::string_view text, std::int64_t font);
    /// At (x, y), turned by an angle in degrees. The text position is added, in the turned system.
    void ShowRotated(std::string_view text, double angle, double x, double y);
    /// On a circle, centered on the angle in degrees, in font 0.
    void DrawRotatedText(std::string_view text, double centerX, double centerY, double radius, double angle,
                         std::int64_t size);
    void DrawRotatedTextFont(std::string_view text, double centerX, double centerY, double radius, double angle,
                             std::int64_t size, std::int64_t font);
    void DrawCircle(double x, double y, double r);
    void FillCircle(double x, double y, double r);
    /// A filled rectangle, turned about its center by an angle in degrees.
    void FillRectRotated(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, double angle);
    /// Opens a text object if none is open, and sets the font.
    void HandleInTextMode();
    /// Closes the open text object, if any.
    void HandleOutTextMode();

    // Clipped lines (MyPDFGenerator_Clip.cpp).

    /// Where a point lies by the rectangle of the latest ClipLine: the sum of 1 above, 2 below, 4 right, 8 left.
    /// A point on an edge counts as inside.
    int FindRegion(double x, double y) const;
    /// Strokes what the rectangle leaves of the line, as a path of its own; nothing if it leaves nothing. An
    /// end on which rounding cannot decide at a corner is put into the corner.
    void ClipLine(double x1, double y1, double x2, double y2, double left, double bottom, double width,
                  double height);

    // What the file is made of, for CloseFile and whoever checks it.

    /// The date and time in PDF form, with its parentheses. The time zone is in whole hours.
    static std::string ReturnCurrentDate(const LocalTime& now);
    /// Four bytes, the lowest first.
    std::string AddFourBytes(std::uint64_t value);
    /// Appends to the content stream what the operators have made elsewhere.
    void AddToStream(std::string_view text);
    /// What is drawn from here on has the role.
    void SetRole(Role role);
    /// Those of the content stream as drawn so far.
    const PageRoles& Roles() const { return roles; }
    /// The content stream as drawn so far.
    std::string_view Stream() const { return streamC.View(); }
    /// The same, given away: a new document begins with none.
    CapacityString TakeStream();

private:
    /// A line of the content stream: numbers, each with a blank behind it, and the operator that takes them.
    void AddLine(std::initializer_list<double> operands, std::string_view operation);
    void LimitStream() const;
    void AddFontLine(std::int64_t font);
    void AddTextPositionLine();
    void AddTextLine(std::string_view text);
    void DrawCircularText(std::string_view text, double centerX, double centerY, double radius, double angle,
                          std::int64_t size, std::int64_t font);
    void AddCirclePath(double x, double y, double r);

    using Line = std::array<Point, 2>;
    /// The point of the line on one edge of the clip rectangle that the region lies outside of.
    Point CutLine(const Line& line, int region) const;
    /// Moves one end of the line, which lies in `region`, into the clip rectangle. False if there is nothing of the
    /// line in it: an end and the other one, which lies in `otherRegion`, are outside on the same side.
    bool BringInside(Line& line, std::size_t end, int region, int otherRegion) const;

    CapacityString CompressedStream(std::string_view text);
    void NewObject();
    void EndObject();
    void WriteBareObject(std::int64_t number, std::string_view line);
    void WriteFontObject(std::string_view baseFont);
    void WriteContentObject(std::string_view data);
    void WriteInfoObject(const LocalTime& now);
    void WriteResourceObject();
    void WriteObjects(std::string_view streamData, const LocalTime& now);
    void WriteDocument(std::string_view streamData, const LocalTime& now);
    void WriteCrossReferenceTable();
    void WriteTrailer();
    void WriteStringToFile(std::string_view text);
    void WriteStringLineToFile(std::string_view text);

    Turns& turns;
    std::int64_t mostStream;  ///< bytes

    std::int64_t numObjects = 0;  ///< highest object number used so far
    BinaryStream b;
    std::int64_t numObjectInfo = 0;
    std::int64_t numObjectCatalog = 0;
    std::array<std::int64_t, 201> objectOffsets{};  ///< by object number; 0 holds nothing
    std::int64_t currentFileLength = 0;
    std::int64_t startxref = 0;
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
