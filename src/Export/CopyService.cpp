#include "CopyService.h"

#include "Catalog/IconLibrary.h"
#include "Export/DragFolder.h"
#include "Export/IconRenderer.h"
#include "Export/RenderOptions.h"
#include "Export/SnippetBuilder.h"
#include "State/PreferenceRanges.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"

#include <QFileInfo>
#include <QMimeData>
#include <QSaveFile>
#include <QTimer>
#include <QUrl>

namespace {

constexpr int pasteDelayMs = 120;
constexpr qsizetype maxFileStem = 120;

} // namespace

CopyService::CopyService(IconLibrary& library, UserLibrary& user, Preferences& preferences,
                         Clipboard& clipboard, HeadsUp& headsUp, Paster& paster, QObject* parent)
    : QObject(parent), m_library(library), m_user(user), m_preferences(preferences),
      m_clipboard(clipboard), m_headsUp(headsUp), m_paster(paster),
      m_schedulePaste([this](std::function<void()> paste) {
          QTimer::singleShot(pasteDelayMs, this, std::move(paste));
      })
{
}

bool CopyService::copy(const IconExport& item, ExportFormat format)
{
    m_clipboard.clear();
    if (const std::optional<int> scale = Formats::pngScale(format)) {
        const QImage image = IconRenderer::bitmap(
            m_library, item.icon, RenderOptions::forExport(item, *scale, m_preferences));
        if (image.isNull())
            return false;
        const QByteArray png = IconRenderer::encodePNG(image);
        if (png.isEmpty())
            return false;
        m_clipboard.putPNG(png, image);
    } else {
        m_clipboard.putText(SnippetBuilder::current(m_preferences).text(format, item));
    }
    record(item, format);
    m_headsUp.show(QStringLiteral("Copied ") + item.icon.id() + QStringLiteral(" as ") +
                   Formats::label(format, m_preferences.reactLanguage()));
    return true;
}

bool CopyService::copyWithDefaults(const Icon& icon, std::optional<ExportFormat> format)
{
    IconExport item;
    item.icon = icon;
    item.style =
        icon.has(m_preferences.defaultStyle()) ? m_preferences.defaultStyle() : IconStyle::outline;
    item.size = static_cast<int>(m_preferences.defaultSize());
    item.stroke = m_preferences.defaultStroke();
    item.color = m_preferences.defaultColor();
    return copy(item, format.value_or(m_preferences.defaultFormat()));
}

bool CopyService::copyLastAgain()
{
    const std::optional<UserLibrary::LastCopy> last = m_user.lastCopy();
    if (!last)
        return false;
    const Icon icon = m_library.icon(last->name);
    if (icon.isNull())
        return false;
    const IconExport item{icon, last->style,
                          static_cast<int>(PreferenceRanges::iconSize.clamp(last->size)),
                          last->stroke, last->color};
    return copy(item, last->format);
}

QMimeData* CopyService::itemProvider(const IconExport& item)
{
    auto* data = new QMimeData;
    const DragFormat dragFormat = m_preferences.dragFormat();
    const QString stem = safeFileStem(item.packageName());

    QByteArray png;
    if (dragFormat != DragFormat::svg) {
        const QImage image = IconRenderer::bitmap(m_library, item.icon,
                                                  RenderOptions::forExport(item, 2, m_preferences));
        if (!image.isNull())
            png = IconRenderer::encodePNG(image);
    }

    if (dragFormat == DragFormat::png2x) {
        const QString path =
            png.isEmpty() ? QString() : writeDragFile(stem + QStringLiteral("@2x.png"), png);
        if (!path.isEmpty())
            data->setUrls({QUrl::fromLocalFile(path)});
        record(item, ExportFormat::png2);
        return data;
    }

    // Files outside the program cannot resolve currentColor: give them black.
    IconExport black = item;
    if (black.color == u"currentColor")
        black.color = QStringLiteral("#000000");
    const QByteArray svg = SnippetBuilder::current(m_preferences).svg(black, false).toUtf8();
    const QString path = writeDragFile(stem + QStringLiteral(".svg"), svg);
    if (!path.isEmpty())
        data->setUrls({QUrl::fromLocalFile(path)});
    if (dragFormat == DragFormat::bestMatch) {
        if (!png.isEmpty())
            data->setData(QStringLiteral("image/png"), png);
        data->setData(QStringLiteral("image/svg+xml"), svg);
    }
    record(item, ExportFormat::svg);
    return data;
}

QString CopyService::safeFileStem(const QString& packageName)
{
    QString stem;
    stem.reserve(packageName.size());
    for (const QChar c : packageName) {
        const bool unsafe = c == u'/' || c == u'\\' || c.category() == QChar::Other_Control ||
                            c.category() == QChar::Other_Format || c.isNull();
        stem.append(unsafe ? u'_' : c);
    }
    stem.replace(QStringLiteral(".."), QStringLiteral("_"));
    while (stem.startsWith(u'.'))
        stem.remove(0, 1);
    stem.truncate(maxFileStem);
    return stem.isEmpty() ? QStringLiteral("icon") : stem;
}

QString CopyService::writeDragFile(const QString& name, const QByteArray& data)
{
    const QString folder = DragFolder::path();
    if (folder.isEmpty())
        return {};
    QString path = folder + u'/' + name;
    const QFileInfo target(path);
    // QSaveFile writes through a symbolic link; a link here is not ours to follow.
    if (target.isSymLink() || (target.exists() && !target.isFile()) ||
        target.absolutePath() != QFileInfo(folder).absoluteFilePath())
        return {};
    QSaveFile file(path);
    // Readable by this user only, like the folder: the receiving program runs as the user.
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(data) != data.size() || !file.commit())
        return {};
    return path;
}

bool CopyService::pasteIntoFrontApp()
{
    if (!m_paster.isTrusted())
        return false;
    m_schedulePaste([this] { m_paster.paste(); });
    return true;
}

void CopyService::record(const IconExport& item, ExportFormat format)
{
    m_user.recordCopy({item.icon.id(), item.style, format, item.color, item.size, item.stroke});
}
