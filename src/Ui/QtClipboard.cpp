#include "QtClipboard.h"

#include "ClipboardCarrier.h"
#include "Platform/Wayland/WlCopy.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

QtClipboard::QtClipboard() = default;
QtClipboard::~QtClipboard() = default;

void QtClipboard::useFocusCarrier()
{
    if (!m_carrier)
        m_carrier = std::make_unique<ClipboardCarrier>();
}

void QtClipboard::clear()
{
    offer(nullptr);
    assistWithoutFocus({}, QString());
}

void QtClipboard::putText(const QString& text)
{
    auto* data = new QMimeData;
    data->setText(text);
    offer(data);
    assistWithoutFocus(text.toUtf8(), QStringLiteral("text/plain;charset=utf-8"));
}

void QtClipboard::putPNG(const QByteArray& png, const QImage& image)
{
    auto* data = new QMimeData;
    data->setData(QStringLiteral("image/png"), png);
    data->setImageData(image);
    offer(data);
    assistWithoutFocus(png, QStringLiteral("image/png"));
}

void QtClipboard::offer(QMimeData* data)
{
    if (!m_carrier) {
        QGuiApplication::clipboard()->setMimeData(data);
        return;
    }
    // Owned by the offer until the clipboard takes it.
    auto held = std::make_shared<std::unique_ptr<QMimeData>>(data);
    m_carrier->carry([held] { QGuiApplication::clipboard()->setMimeData(held->release()); });
}

void QtClipboard::assistWithoutFocus(const QByteArray& bytes, const QString& mimeType)
{
    if (m_carrier && !QGuiApplication::focusWindow())
        WlCopy::offer(bytes, mimeType);
}
