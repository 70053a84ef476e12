#include "desktop/dialogs/PadProgram.h"

#include "desktop/system/Text.h"
#include "platform/Process.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace linealis::desktop {

namespace {

/// Returns what the program has said, without the name of the program at the start of each line.
QString Words(const QByteArray& errors)
{
    QStringList lines = QString::fromUtf8(errors).trimmed().split(QLatin1Char('\n'));
    for (QString& line : lines) {
        constexpr QLatin1String prefix("linealis-cli: ");
        if (line.startsWith(prefix)) {
            line.remove(0, prefix.size());
        }
        line = line.left(1).toUpper() + line.mid(1);
    }
    return lines.join(QLatin1Char('\n'));
}

}  // namespace

PadProgram::PadProgram()
{
    connect(&process, &QProcess::finished, this, &PadProgram::Finished);
    connect(&process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            emit Ended(
                false,
                tr("Cannot run the program that makes pads, %1: %2").arg(process.program(), process.errorString()));
        }
    });
}

QString PadProgram::Path()
{
    const std::string calledAs = QCoreApplication::applicationFilePath().toStdString();
    return ToQt((OwnProgram(calledAs.c_str()).parent_path() / "linealis-cli").string());
}

bool PadProgram::IsInstalled()
{
    return QFileInfo(Path()).isExecutable();
}

void PadProgram::Start(const QStringList& options, const QString& theTarget)
{
    target = theTarget;
    isStopped = false;
    process.start(Path(),
                  QStringList{QStringLiteral("pad")} + options + QStringList{QStringLiteral("--output"), target});
}

void PadProgram::Finished(int status, QProcess::ExitStatus how)
{
    const QString said = Words(process.readAllStandardError());
    const QString fileName = QFileInfo(target).fileName();
    if (isStopped) {
        emit Ended(false, tr("Canceled; %1 is unchanged").arg(fileName));
    } else if (how == QProcess::CrashExit) {
        emit Ended(false, tr("%1 was not written: the program that makes pads has crashed").arg(fileName));
    } else {
        emit Ended(status == 0, said);
    }
}

void PadProgram::Stop()
{
    constexpr int patience = 3000;  // milliseconds
    if (IsRunning()) {
        isStopped = true;
        process.terminate();
        if (!process.waitForFinished(patience)) {
            process.kill();
        }
    }
}

}  // namespace linealis::desktop
