#include "desktop/dialogs/PadMaker.h"

#include "check/PageCheck.h"
#include "desktop/dialogs/PadRemarks.h"
#include "desktop/system/Text.h"

#include <QFileInfo>
#include <exception>
#include <new>
#include <utility>

namespace linealis::desktop {

namespace {

/// Content up to this many bytes is checked. Takes no noticeable time.
constexpr std::size_t longestChecked = std::size_t{256} << 10U;

}  // namespace

PadMaker::PadMaker()
{
    connect(this, &PadMaker::Left, this, &PadMaker::Take);
}

void PadMaker::Start(PadJob theJob, const QString& theTarget)
{
    job = std::move(theJob);
    target = theTarget;
    stops = false;
    isRunning = true;
    sinceTold.start();
    thread = std::thread([this] { Work(); });
}

void PadMaker::Finish()
{
    stops = true;
    isRunning = false;
    if (thread.joinable()) {
        thread.join();
    }
}

void PadMaker::Take(bool isWritten, const QString& message)
{
    if (std::exchange(isRunning, false)) {
        thread.join();
        emit Ended(isWritten, message);
    }
}

bool PadMaker::IsTimeToTell()
{
    constexpr int betweenSignals = 50;  // milliseconds
    if (sinceTold.elapsed() < betweenSignals) {
        return false;
    }
    sinceTold.restart();
    return true;
}

void PadMaker::StopIfAsked() const
{
    if (stops) {
        throw PageStopped();
    }
}

void PadMaker::Work()
{
    const QString name = QFileInfo(target).fileName();
    QString problem, warnings;
    try {
        BinaryStream stream = FolderItem(std::filesystem::path(target.toStdString())).CreateBinaryFile();
        if (stream.IsOpen()) {
            warnings = Write(stream);
            stream.Close();
        }
        problem = stream.Error() ? ToQt(stream.Error().message()) : QString();
    } catch (const PageStopped&) {
        emit Left(false, tr("Canceled; %1 is unchanged").arg(name));
        return;
    } catch (const PageGivenUp& givenUp) {
        problem = ToQt(Message(givenUp.reason));
    } catch (const std::bad_alloc&) {
        problem = ToQt(Message("there is not enough memory for the page"));
    } catch (const std::exception& error) {
        problem = QString::fromUtf8(error.what());
    }
    const bool isWritten = problem.isEmpty();
    emit Left(isWritten, isWritten ? warnings : tr("%1 was not written: %2").arg(name, problem));
}

QString PadMaker::Write(BinaryStream& stream)
{
    const int sides = job.plan.IsOnBothSides() ? 2 : 1;
    const int all = static_cast<int>(job.plan.Sheets() * job.copies);
    PadRemarks remarks;
    Turns turns([this] { StopIfAsked(); });
    PadFile file(stream, turns);
    AddPages(file, remarks);
    file.Finish(job.plan, job.copies, job.now, [&](std::size_t written) {
        if (IsTimeToTell()) {
            emit Written(static_cast<int>(written) / sides, all);
        }
    });
    return remarks.Text();
}

void PadMaker::AddPages(PadFile& file, PadRemarks& remarks)
{
    for (const PageWarning& warning : job.warnings) {
        remarks.Add({}, warning.text);
    }
    const auto draw = [&](const PaperPage& page, const Message& name) {
        Turns turns([this] { StopIfAsked(); });
        DrawnPage drawn = job.Draw(page, turns, [&](const Message& said) { remarks.Add(name, said); });
        for (const PageWarning& warning :
             drawn.content.View().size() <= longestChecked ? WarningsOf(drawn) : drawn.warnings) {
            remarks.Add(name, warning.text);
        }
        return drawn;
    };
    if (job.table) {
        file.AttachTable(job.table->csv, job.carriedForm);
    }
    for (std::size_t front = 0; front < job.plan.fronts; ++front) {
        file.AddFront(draw(job.Front(front), job.table ? job.table->NameOf(front) : Message()),
                      job.table ? std::string() : job.carriedForm);
        if (IsTimeToTell()) {
            emit Drawn(static_cast<int>(front) + 1, static_cast<int>(job.plan.fronts));
        }
    }
    if (job.back && job.backIsForm && !job.table) {
        file.SetBackToFront();
    } else if (job.back) {
        file.SetBack(draw(*job.back, {}), job.carriedBack);
    }
}

}  // namespace linealis::desktop
