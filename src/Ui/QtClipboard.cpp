#include "QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

void QtClipboard::clear()
{
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::putText(const QString& text)
{
    auto* data = new QMimeData;
    data->setText(text);
    QGuiApplication::clipboard()->setMimeData(data);
}

void QtClipboard::putPNG(const QByteArray& png, const QImage& image)
{
    auto* data = new QMimeData;
    data->setData(QStringLiteral("image/png"), png);
    data->setImageData(image);
    QGuiApplication::clipboard()->setMimeData(data);
}
