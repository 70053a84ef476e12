#include "desktop/ExportPage.h"

#include "desktop/Text.h"
#include "desktop/WindowSettings.h"
#include "exchange/SvgPage.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <algorithm>

namespace linealis::desktop {

namespace {

const QString folderKey = QStringLiteral("folders/export");
const QString formatKey = QStringLiteral("export/isPng");
const QString resolutionKey = QStringLiteral("export/resolution");
const QString transparentKey = QStringLiteral("export/transparent");

/// Asks what the picture is to be like. What was chosen last is proposed.
class ExportDialog final : public QDialog {
public:
    ExportDialog(const PaperSize& thePaper, QWidget* parent) : QDialog(parent), paper(thePaper)
    {
        setObjectName(QStringLiteral("export"));
        setWindowTitle(QObject::tr("Export Page"));
        const WindowSettings settings;
        svg->setObjectName(QStringLiteral("ExportSvg"));
        png->setObjectName(QStringLiteral("ExportPng"));
        QRadioButton* const last = settings.value(formatKey).toBool() ? png : svg;
        last->setChecked(true);
        resolution->setObjectName(QStringLiteral("ExportResolution"));
        resolution->setRange(1, HighestDotsPerInch(paper));
        resolution->setSuffix(QObject::tr(" dpi"));
        resolution->setValue(settings.value(resolutionKey, 300).toInt());
        transparent->setObjectName(QStringLiteral("ExportTransparent"));
        transparent->setChecked(settings.value(transparentKey).toBool());

        auto* const form = new QFormLayout(this);
        form->addRow(svg);
        form->addRow(png);
        form->addRow(QObject::tr("&Resolution:"), resolution);
        form->addRow(QString(), pixels);
        form->addRow(QString(), transparent);
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
        buttons->addButton(QObject::tr("&Export..."), QDialogButtonBox::AcceptRole);
        form->addRow(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        QObject::connect(png, &QRadioButton::toggled, this, [this] { Follow(); });
        QObject::connect(resolution, &QSpinBox::valueChanged, this, [this] { Follow(); });
        last->setFocus();
        Follow();
    }

    bool IsPng() const { return png->isChecked(); }

    PngOptions Options() const
    {
        PngOptions options;
        options.dotsPerInch = resolution->value();
        options.isTransparent = transparent->isChecked();
        return options;
    }

    void Keep() const
    {
        WindowSettings settings;
        settings.setValue(formatKey, IsPng());
        settings.setValue(resolutionKey, resolution->value());
        settings.setValue(transparentKey, transparent->isChecked());
    }

private:
    void Follow()
    {
        for (QWidget* const widget : std::initializer_list<QWidget*>{resolution, transparent, pixels}) {
            widget->setEnabled(IsPng());
        }
        const PixelSize size = PixelsOf(paper, resolution->value());
        pixels->setText(QObject::tr("%1 by %2 pixels").arg(size.width).arg(size.height));
    }

    PaperSize paper;
    QRadioButton* svg = new QRadioButton(QObject::tr("&SVG, lines that stay sharp at any size"));
    QRadioButton* png = new QRadioButton(QObject::tr("&PNG, a picture of pixels"));
    QSpinBox* resolution = new QSpinBox;
    QLabel* pixels = new QLabel;
    QCheckBox* transparent = new QCheckBox(QObject::tr("&Transparent, without the white of the paper"));
};

PaperSize SizeOf(const DrawnPage& page)
{
    return {page.frame.paperWidth, page.frame.paperHeight};
}

bool IsPng(const QString& path)
{
    return path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
}

QByteArray ToBytes(const std::string& bytes)
{
    return QByteArray::fromStdString(bytes);
}

}  // namespace

ExportChoice AskForExport(const PaperSize& paper, const QString& name, QWidget* parent, const ModalRunner& runModal)
{
    ExportDialog options(paper, parent);
    if (runModal(options) != QDialog::Accepted) {
        return {};
    }
    options.Keep();
    const QString ending = options.IsPng() ? QStringLiteral("png") : QStringLiteral("svg");
    QFileDialog dialog(parent, QObject::tr("Save Picture"));
    if (const QString last = WindowSettings().value(folderKey).toString(); QDir(last).exists()) {
        dialog.setDirectory(last);
    }
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(ending.toUpper(), ending));
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(name + QLatin1Char('.') + ending);
    if (runModal(dialog) != QDialog::Accepted) {
        return {};
    }
    WindowSettings().setValue(folderKey, dialog.directory().absolutePath());
    QString path = dialog.selectedFiles().value(0);
    if (!path.endsWith(QLatin1Char('.') + ending, Qt::CaseInsensitive)) {
        path += QLatin1Char('.') + ending;
    }
    return {path, options.Options()};
}

QString ExportPage(const DrawnPage& page, const ExportChoice& choice, Turns& turns)
{
    const QString name = QFileInfo(choice.path).fileName();
    BinaryStream stream = FolderItem(std::filesystem::path(choice.path.toStdString())).CreateBinaryFile();
    if (stream.IsOpen()) {
        if (IsPng(choice.path)) {
            WritePng(SizeOf(page), page.content, choice.png, stream, &turns);
        } else {
            WriteSvg(SizeOf(page), page.content, choice.png.carried, stream, &turns);
        }
        stream.Close();
    }
    if (stream.Error()) {
        return QObject::tr("%1 was not written: %2").arg(name, ToQt(stream.Error().message()));
    }
    return QObject::tr("Wrote %1").arg(name);
}

std::unique_ptr<QMimeData> PageForClipboard(const DrawnPage& page, const std::string& pdf,
                                            const std::string& carried, Turns& turns)
{
    constexpr int resolution = 300;
    const PaperSize paper = SizeOf(page);
    PngOptions options;
    options.dotsPerInch = std::min(resolution, HighestDotsPerInch(paper));
    options.carried = carried;
    std::string png, svg;
    BinaryStream stream = BinaryStream::IntoMemory(png);
    WritePng(paper, page.content, options, stream, &turns);
    stream = BinaryStream::IntoMemory(svg);
    WriteSvg(paper, page.content, carried, stream, &turns);

    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("application/pdf"), ToBytes(pdf));
    data->setData(QStringLiteral("image/svg+xml"), ToBytes(svg));
    data->setData(QStringLiteral("image/png"), ToBytes(png));
    return data;
}

}  // namespace linealis::desktop
