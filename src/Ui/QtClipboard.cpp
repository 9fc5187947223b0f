#include "QtClipboard.h"

#include "ClipboardCarrier.h"

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
}

void QtClipboard::putText(const QString& text)
{
    auto* data = new QMimeData;
    data->setText(text);
    offer(data);
}

void QtClipboard::putPNG(const QByteArray& png, const QImage& image)
{
    auto* data = new QMimeData;
    data->setData(QStringLiteral("image/png"), png);
    data->setImageData(image);
    offer(data);
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
