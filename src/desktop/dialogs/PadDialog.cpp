#include "desktop/dialogs/PadDialog.h"

#include "desktop/dialogs/DialogColumn.h"
#include "desktop/page/PadPicture.h"
#include "desktop/system/FileDialogs.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"
#include "exchange/FormJson.h"
#include "pdf/Units.h"
#include "pipeline/document/MarkerFile.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

namespace {

const QString padFolderKey = QStringLiteral("folders/pad");

/// Returns the size of a sheet in the unit of its form.
QString SizeText(const PaperSize& size, bool inInches)
{
    const auto text = [=](std::int64_t points) {
        const double inches = static_cast<double>(points) / pointsPerInch;
        const QString number =
            inInches ? QString::number(inches, 'g', 4) : QString::number(inches * mmPerInch, 'f', 0);
        return Message::Number(number.toStdString());
    };
    return ToQt(inInches ? Message("%1 × %2 in", text(size.width), text(size.height))
                         : Message("%1 × %2 mm", text(size.width), text(size.height)));
}

}  // namespace

PadDialog::PadDialog(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow,
                     QString theName, QWidget* parent)
    : QDialog(parent), platform(thePlatform), kind(theKind), window(theWindow), page(theWindow.ReadPage()),
      back(thePlatform, theWindow.form, page), name(std::move(theName))
{
    setObjectName(QStringLiteral("pad"));
    setWindowTitle(tr("Print Pad"));
    picture = new PadPicture(page);
    summary->setObjectName(QStringLiteral("PadSummary"));
    summary->setAlignment(Qt::AlignCenter);
    said->setObjectName(QStringLiteral("PadMessage"));
    said->setTextFormat(Qt::PlainText);
    said->setWordWrap(true);
    said->setTextInteractionFlags(Qt::TextSelectableByMouse);
    said->hide();
    progress->setRange(0, 0);  // busy: the program does not tell how far it is
    progress->setTextVisible(false);
    progress->setAccessibleName(tr("Making the pad"));
    progress->hide();

    constexpr int spacing = 8;  // pixels
    auto* const rows = new QFormLayout(fields);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setVerticalSpacing(spacing);
    rows->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    AddFields(*rows);
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

    connect(&program, &PadProgram::Ended, this, &PadDialog::ShowEnd);
    Restore();
    ShowPad();
    pages->setFocus();
    pages->selectAll();
}

PadDialog::~PadDialog()
{
    program.Stop();
}

void PadDialog::AddFields(QFormLayout& rows)
{
    const auto add = [&](const QString& caption, QWidget* widget, const char* objectName) {
        widget->setObjectName(QString::fromLatin1(objectName));
        rows.addRow(caption, widget);
    };
    pages->setRange(1, mostPadPages);
    for (const std::size_t count : possiblePagesUp) {
        const auto number = static_cast<int>(count);
        up->addItem(number == 1 ? tr("1 page") : tr("%1 pages, with cut marks").arg(number), number);
    }
    numbers = new QCheckBox(tr("&Number the pages"));
    numbers->setToolTip(tr("In the order of the stacks after cutting"));
    copies->setRange(1, mostPadCopies);
    copies->setMinimumWidth(pages->sizeHint().width());
    for (QComboBox* const box : {up, &back.Backs(), &back.Presets()}) {
        constexpr int usualTitle = 24;  // characters; the width does not depend on the choice
        box->setMinimumContentsLength(usualTitle);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    add(tr("&Pages:"), pages, "PadPages");
    add(tr("On each &side:"), up, "PadUp");
    add(QString(), numbers, "PadNumbers");
    rows.addRow(tr("&Back:"), &back.Backs());
    rows.addRow(tr("P&reset:"), &back.Presets());
    add(tr("&Copies:"), copies, "PadCopies");
    for (QSpinBox* const box : {pages, copies}) {
        connect(box, &QSpinBox::valueChanged, this, &PadDialog::ShowPad);
    }
    connect(up, &QComboBox::currentIndexChanged, this, &PadDialog::ShowPad);
    connect(numbers, &QCheckBox::toggled, this, &PadDialog::ShowPad);
    connect(&back, &PadBack::Changed, this, [this] {
        said->hide();
        ShowPad();
    });
    connect(&back, &PadBack::Refused, this, [this](const QString& why) {
        said->setText(why);
        said->show();
    });
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
    connect(print, &QPushButton::clicked, this, [this] {
        Keep();
        done(printing);
    });
    connect(save, &QPushButton::clicked, this, &PadDialog::Save);
    connect(cancel, &QPushButton::clicked, this, [this] { program.IsRunning() ? program.Stop() : reject(); });
    if (!PadProgram::IsInstalled()) {
        save->setEnabled(false);
        said->setText(tr("A PDF file cannot be saved: the program that makes pads, %1, is not installed.")
                          .arg(PadProgram::Path()));
        said->show();
    }
    return buttons;
}

PadLayout PadDialog::Layout() const
{
    return {static_cast<std::size_t>(pages->value()),
            static_cast<std::size_t>(up->currentData().toInt()),
            numbers->isChecked(),
            {page.frame.paperWidth, page.frame.paperHeight}};
}

void PadDialog::ShowPad()
{
    const PadLayout layout = Layout();
    const auto sheets = static_cast<int>(layout.Sheets()) * copies->value();
    std::optional<PaperPage> backPage = back.Page();
    const QString size = SizeText(layout.Side(), page.frame.IsInInches());
    QString text = ToQt(Message(Plural("%1 sheet of %2", "%1 sheets of %2"), sheets, sheets, size.toStdString()));
    if (backPage) {
        text += tr(", printed on both sides");
    }
    summary->setText(text);
    picture->setAccessibleDescription(text);
    picture->Show(layout, std::move(backPage));
}

void PadDialog::Keep() const
{
    WindowSettings settings;
    settings.setValue(QStringLiteral("pad/pages"), pages->value());
    settings.setValue(QStringLiteral("pad/up"), up->currentData());
    settings.setValue(QStringLiteral("pad/numbers"), numbers->isChecked());
    settings.setValue(QStringLiteral("pad/copies"), copies->value());
}

void PadDialog::Restore()
{
    const WindowSettings settings;
    const PadLayout usual;
    pages->setValue(settings.value(QStringLiteral("pad/pages"), static_cast<int>(usual.pages)).toInt());
    up->setCurrentIndex(std::max(up->findData(settings.value(QStringLiteral("pad/up"), 1)), 0));
    numbers->setChecked(settings.value(QStringLiteral("pad/numbers")).toBool());
    copies->setValue(settings.value(QStringLiteral("pad/copies"), 1).toInt());
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

std::optional<QStringList> PadDialog::Arguments()
{
    const QString form = folder.filePath(QStringLiteral("form.json"));
    QFile file(form);
    const QByteArray json = QByteArray::fromStdString(CarriedForm(kind, window.form));
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.flush()) {
        said->setText(tr("%1 was not written: %2").arg(form, file.errorString()));
        return std::nullopt;
    }
    const PadLayout layout = Layout();
    QStringList arguments = {QStringLiteral("--form"),   form,
                             QStringLiteral("--pages"),  QString::number(layout.pages),
                             QStringLiteral("--up"),     QString::number(layout.up),
                             QStringLiteral("--copies"), QString::number(copies->value())};
    if (layout.hasNumbers) {
        arguments << QStringLiteral("--numbers");
    }
    if (const QString source = back.Source(form); !source.isEmpty()) {
        arguments << QStringLiteral("--back") << source;
    }
    if (const auto* const markers = window.form.Find<CheckBox>("CheckBoxMarkers");
        markers != nullptr && markers->Value()) {
        if (const FolderItem given = platform.GetOpenFolderItem(markerFileType); !given.IsEmpty()) {
            arguments << QStringLiteral("--markers") << ToQt(given.Path().string());
        }
    }
    return arguments;
}

void PadDialog::Save()
{
    const QString path = AskForFile();
    if (path.isEmpty()) {
        return;
    }
    Keep();
    const std::optional<QStringList> arguments = Arguments();
    if (!arguments) {
        said->show();
        return;
    }
    ShowWorking(true);
    program.Start(*arguments, path);
}

void PadDialog::ShowWorking(bool works)
{
    fields->setEnabled(!works);
    print->setEnabled(!works);
    save->setEnabled(!works);
    progress->setVisible(works);
    said->setVisible(!works);
    if (works) {
        cancel->setFocus();
    }
}

void PadDialog::ShowEnd(bool isWritten, const QString& message)
{
    ShowWorking(false);
    said->setText(message);
    if (!isWritten) {
        return;
    }
    saved = program.Target();
    if (message.isEmpty()) {
        accept();
        return;
    }
    said->setText(tr("Wrote %1.").arg(QFileInfo(saved).fileName()) + QLatin1Char('\n') + message);
    cancel->setText(tr("C&lose"));
}

void PadDialog::reject()
{
    program.Stop();
    QDialog::reject();
}

}  // namespace linealis::desktop
