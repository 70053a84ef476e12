#include "desktop/dialogs/PadDialog.h"

#include "check/PageCheck.h"
#include "desktop/dialogs/DialogColumn.h"
#include "desktop/page/PadPicture.h"
#include "desktop/system/FileDialogs.h"
#include "desktop/system/Text.h"
#include "exchange/FormJson.h"
#include "pdf/Units.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

namespace {

const QString padFolderKey = QStringLiteral("folders/pad");

/// Returns the size of a sheet in the unit of its form.
Message SizeText(const PaperSize& size, bool inInches)
{
    const auto text = [=](std::int64_t points) {
        const double inches = static_cast<double>(points) / pointsPerInch;
        const QString number =
            inInches ? QString::number(inches, 'g', 4) : QString::number(inches * mmPerInch, 'f', 0);
        return Message::Number(number.toStdString());
    };
    return inInches ? Message("%1 × %2 in", text(size.width), text(size.height))
                    : Message("%1 × %2 mm", text(size.width), text(size.height));
}

PaperSize SizeOf(const PaperPage& page)
{
    return {page.frame.paperWidth, page.frame.paperHeight};
}

bool AreSame(const PaperSize& a, const PaperSize& b)
{
    return a.width == b.width && a.height == b.height;
}

/// Whether the pages of a pad differ in size; then each is on a sheet of its own.
bool SizesDiffer(const PadJob& job)
{
    return job.table && std::any_of(job.table->pages.begin(), job.table->pages.end(), [&](const PaperPage& page) {
               return !AreSame(SizeOf(page), SizeOf(job.table->pages.front()));
           });
}

PadJob JobOf(PaperPage form)
{
    PadJob job;
    job.form = std::move(form);
    return job;
}

/// Returns a sentence that begins with a small letter as one of its own.
QString Sentence(const QString& text)
{
    return text.left(1).toUpper() + text.mid(1);
}

}  // namespace

PadDialog::PadDialog(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow,
                     QString theName, QWidget* parent)
    : QDialog(parent), platform(thePlatform), kind(theKind), window(theWindow), job(JobOf(theWindow.ReadPage())),
      front(thePlatform, theKind, theWindow), back(thePlatform, theWindow.form, job.form), name(std::move(theName)),
      fields(new PadFields(front.Fronts(), back.Backs(), back.Presets(), job.form.frame.IsInInches())),
      picture(new PadPicture)
{
    setObjectName(QStringLiteral("pad"));
    setWindowTitle(tr("Print Pad"));
    summary->setObjectName(QStringLiteral("PadSummary"));
    summary->setAlignment(Qt::AlignCenter);
    said->setObjectName(QStringLiteral("PadMessage"));
    said->setTextFormat(Qt::PlainText);
    said->setWordWrap(true);
    said->setTextInteractionFlags(Qt::TextSelectableByMouse);
    said->hide();
    progress->setObjectName(QStringLiteral("PadProgress"));
    progress->setAccessibleName(tr("Making the pad"));
    progress->hide();

    constexpr int spacing = 8;  // pixels
    auto* const right = new QVBoxLayout;
    right->setSpacing(spacing);
    right->addWidget(picture, 1);
    right->addWidget(summary);
    auto* const middle = new QHBoxLayout;
    middle->setSpacing(2 * spacing);
    middle->addWidget(fields, 0, Qt::AlignTop);
    middle->addLayout(right, 1);
    auto* const all = MakeDialogColumn(*this);
    all->addLayout(middle, 1);
    all->addWidget(said);
    all->addWidget(progress);
    all->addWidget(MakeButtons());
    print->setDefault(true);  // a button can become the default only once it is in the dialog

    ConnectFields();
    TakeFronts();
    ShowPad();
    fields->findChild<QWidget*>(QStringLiteral("PadMake"))->setFocus();
}

void PadDialog::ConnectFields()
{
    const auto show = [this] {
        said->hide();
        ShowPad();
    };
    connect(fields, &PadFields::Changed, this, show);
    connect(&back, &PadBack::Changed, this, show);
    connect(&front, &PadFront::Changed, this, [this, show] {
        const TablePages* const table = front.Table().get();
        back.SetFrontIsTable(table != nullptr);
        const QSignalBlocker isShownOnce(fields);
        fields->ProposePages(table == nullptr ? 0 : table->pages.size());
        show();
    });
    connect(&front, &PadFront::Refused, this, &PadDialog::Say);
    connect(&back, &PadBack::Refused, this, &PadDialog::Say);
    connect(&front, &PadFront::ReadingChanged, this, [this] {
        ShowWorking(front.IsReading());
        if (!front.IsReading()) {
            front.Fronts().setFocus();
        }
        ShowProgress(tr("Reading the table"), 0, 0);
    });
    connect(&maker, &PadMaker::Drawn, this,
            [this](int pages, int all) { ShowProgress(tr("Page %1 of %2").arg(pages).arg(all), pages, all); });
    connect(&maker, &PadMaker::Written, this,
            [this](int sheets, int all) { ShowProgress(tr("Sheet %1 of %2").arg(sheets).arg(all), sheets, all); });
    connect(&maker, &PadMaker::Ended, this, &PadDialog::ShowEnd);
}

QWidget* PadDialog::MakeButtons()
{
    auto* const buttons = new QDialogButtonBox;
    print = buttons->addButton(tr("Pr&int..."), QDialogButtonBox::AcceptRole);
    save = buttons->addButton(tr("Sa&ve PDF..."), QDialogButtonBox::AcceptRole);
    cancel = buttons->addButton(tr("C&ancel"), QDialogButtonBox::RejectRole);
    print->setObjectName(QStringLiteral("PadPrint"));
    save->setObjectName(QStringLiteral("PadSave"));
    cancel->setObjectName(QStringLiteral("PadCancel"));
    connect(print, &QPushButton::clicked, this, &PadDialog::Print);
    connect(save, &QPushButton::clicked, this, &PadDialog::Save);
    connect(cancel, &QPushButton::clicked, this, &PadDialog::Cancel);
    return buttons;
}

void PadDialog::TakeFronts()
{
    picture->SetFronts([this](std::size_t index) -> const PaperPage& { return job.Front(index); });
}

PadPages PadDialog::Pages() const
{
    PadPages pages;
    if (job.table) {
        for (std::size_t row = 0; row < job.table->pages.size(); ++row) {
            pages.fronts.push_back({job.table->NameOf(row).In(LanguageOfWindows()), SizeOf(job.Front(row))});
        }
    } else {
        pages.fronts.push_back({Translated(kind.title).toStdString(), SizeOf(job.form)});
    }
    if (job.back) {
        pages.back = PadPage{tr("the back").toStdString(), SizeOf(*job.back)};
    }
    return pages;
}

void PadDialog::Plan()
{
    const PadOptions options = fields->Options();
    const bool isPad = fields->Product() == PadProduct::Pad, isPoster = fields->Product() == PadProduct::Poster;
    if (std::shared_ptr<const TablePages> table = isPoster ? nullptr : front.Table(); table != job.table) {
        job.table = std::move(table);
        TakeFronts();
    }
    job.back = isPad ? back.Page() : std::nullopt;
    job.backIsForm = back.IsFrontForm();
    job.copies = options.copies;
    job.plan = PlanOf(options, {job.table != nullptr, job.back.has_value()}, Pages());
}

void PadDialog::ShowPad()
{
    QString problem;
    try {
        Plan();
        picture->Show(job.plan, job.back);
        summary->setText(Summary());
    } catch (const PadError& error) {
        problem = Sentence(ToQt(error.message));
    }
    const bool isPossible = problem.isEmpty();
    print->setEnabled(isPossible);
    save->setEnabled(isPossible);
    picture->setEnabled(isPossible);
    if (!isPossible) {
        summary->clear();
        Say(problem);
    }
    picture->setAccessibleDescription(summary->text());
}

QString PadDialog::Summary() const
{
    const auto sheets = static_cast<double>(job.plan.Sheets() * job.copies);
    if (SizesDiffer(job)) {
        return ToQt(Message(Plural("%1 sheet, as large as its page", "%1 sheets, each as large as its page"),
                            sheets, sheets));
    }
    const Message size = SizeText(job.plan.Side(0).size, job.form.frame.IsInInches());
    const QString text = ToQt(Message(Plural("%1 sheet of %2", "%1 sheets of %2"), sheets, sheets, size));
    return job.plan.IsOnBothSides() ? text + tr(", printed on both sides") : text;
}

void PadDialog::Say(const QString& text)
{
    said->setText(text);
    said->show();
}

void PadDialog::Complete()
{
    job.warnings.clear();
    job.markers = MarkerFile();
    const auto* const box = window.form.Find<CheckBox>("CheckBoxMarkers");
    if (box != nullptr && box->Value()) {
        FolderItem file = window.ChosenMarkerFile();
        if (file.IsEmpty()) {
            file = platform.GetOpenFolderItem(markerFileType);
            job.markers = MarkerFile(file);
        }
        job.warnings = MarkerWarnings(window.form, file);
    }
    job.carriedForm = CarriedForm(kind, window.form);
    job.carriedBack = job.backIsForm ? job.carriedForm : back.Carried();
    job.now = platform.Now();
}

void PadDialog::Print()
{
    if (SizesDiffer(job)) {
        Say(tr("The pages have different sizes, so they cannot be printed together. Save a PDF file instead."));
        return;
    }
    fields->Keep();
    Complete();
    done(printing);
}

QString PadDialog::AskForFile()
{
    QFileDialog dialog(this, tr("Save Pad"));
    GoToFolder(dialog, padFolderKey);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QStringLiteral("PDF (*.pdf)"));
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(tr("%1 pad.pdf").arg(name));
    if (platform.RunModal(dialog) != QDialog::Accepted) {
        return {};
    }
    KeepFolder(dialog, padFolderKey);
    return dialog.selectedFiles().value(0);
}

void PadDialog::Save()
{
    const QString path = AskForFile();
    if (path.isEmpty()) {
        return;
    }
    // The default suffix is not added to a name that has another one, which may be that of the table.
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
        Say(tr("%1 was not written: the name of a PDF file ends with .pdf").arg(QFileInfo(path).fileName()));
        return;
    }
    fields->Keep();
    Complete();
    ShowWorking(true);
    ShowProgress({}, 0, 0);
    maker.Start(job, path);
}

void PadDialog::ShowProgress(const QString& text, int done, int all)
{
    progress->setRange(0, all);
    progress->setValue(done);
    progress->setFormat(text);
}

void PadDialog::ShowWorking(bool works)
{
    fields->setEnabled(!works);
    print->setEnabled(!works);
    save->setEnabled(!works);
    progress->setVisible(works);
    said->hide();
    if (works) {
        cancel->setFocus();
    } else {
        ShowPad();
    }
}

void PadDialog::ShowEnd(bool isWritten, const QString& message)
{
    ShowWorking(false);
    if (!isWritten) {
        Say(message);
        return;
    }
    saved = maker.Target();
    if (message.isEmpty()) {
        accept();
        return;
    }
    Say(tr("Wrote %1.").arg(QFileInfo(saved).fileName()) + QLatin1Char('\n') + message);
    cancel->setText(tr("C&lose"));
}

void PadDialog::Cancel()
{
    if (maker.IsRunning()) {
        maker.Stop();
    } else if (front.IsReading()) {
        front.Stop();
    } else {
        reject();
    }
}

void PadDialog::reject()
{
    front.Stop();
    maker.Finish();
    QDialog::reject();
}

}  // namespace linealis::desktop
