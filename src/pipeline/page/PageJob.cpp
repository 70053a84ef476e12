#include "pipeline/page/PageJob.h"

#include "text/Numbers.h"

#include <new>
#include <string>
#include <utility>

namespace linealis {

namespace {

void GiveUp(MyPDFGenerator& pdf, const Message& reason, Platform& platform)
{
    pdf.Discard();
    platform.ShowFileError(
        pdf.theFile,
        Message("Unable to make the file %1: %2. Nothing was written. Use larger spacing or smaller "
                "paper.",
                pdf.theFile.Name(), reason),
        reason);
}

}  // namespace

void DrawContent(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask)
{
    const PageFrame& frame = page.frame;
    turns.Restart();
    if (pdf.CreateNew() < 0) {
        return;
    }
    pdf.SetParameter("compatibility", "1.4");
    pdf.SetInfo("Creator", "Linealis");
    pdf.SetInfo("Author", "Tallowmere Works");
    pdf.SetInfo("Title", "Graph Paper");
    pdf.SetInfo("Subject", "Width: " + mystring(frame.paperWidth) + "  Height: " + mystring(frame.paperHeight));
    pdf.BeginPage(frame.paperWidth, frame.paperHeight);
    pdf.InitGraphics();
    pdf.Scale(frame.xScale, frame.yScale);
    pdf.SetRole("background");
    pdf.SetBackgroundColor(frame.background);
    if (frame.lineColor) {
        pdf.SetRGBColor(*frame.lineColor);
    }
    page.doGraph(pdf, turns, ask);
    pdf.EndPage();
}

DrawnPage DrawPage(PaperPage page, Turns& turns, const PageQuestions& ask)
{
    MyPDFGenerator pdf(turns);
    DrawContent(page, pdf, turns, ask);
    return {std::move(page), pdf.TakeStream(), pdf.Roles()};
}

DrawnPage DrawBeginning(PaperPage page, Turns& turns, std::int64_t mostContent)
{
    MyPDFGenerator pdf(turns, mostContent);
    try {
        DrawContent(page, pdf, turns, {});
    } catch (const PageGivenUp&) {
    } catch (const PageStopped&) {
    }
    return {std::move(page), pdf.TakeStream(), pdf.Roles()};
}

void WritePdf(const DrawnPage& page, const LocalTime& now, BinaryStream& stream, Turns& turns)
{
    MyPDFGenerator pdf(turns);
    pdf.BeginPage(page.frame.paperWidth, page.frame.paperHeight);
    pdf.WriteFile(page.content, now, stream);
}

std::string FileBytesOf(const DrawnPage& page, const LocalTime& now, Turns& turns)
{
    std::string bytes;
    BinaryStream stream = BinaryStream::IntoMemory(bytes);
    WritePdf(page, now, stream, turns);
    return bytes;
}

PageEnd MakePage(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask,
                 Platform& platform)
{
    try {
        DrawContent(page, pdf, turns, ask);
        const bool written = pdf.CloseFile(platform);
        pdf.Delete();
        return written ? PageEnd::Written : PageEnd::Failed;
    } catch (const PageStopped&) {
        pdf.Discard();
        return PageEnd::Stopped;
    } catch (const PageGivenUp& givenUp) {
        GiveUp(pdf, Message(givenUp.reason), platform);
    } catch (const std::bad_alloc&) {
        GiveUp(pdf, Message("there is not enough memory for the page, so it was abandoned"), platform);
    }
    return PageEnd::Failed;
}

}  // namespace linealis
