#include "Export/IconRenderer.h"
#include "Export/RenderOptions.h"
#include "PickerFixture.h"
#include "Ui/Kit/IconGlyph.h"
#include "Ui/Kit/KitQml.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

// What the picker shows of a colour setting is what a copy of it gives: the
// glyph and the colour swatch read the setting as the export does.
class TestPreviewColor : public QObject {
    Q_OBJECT

    const PathList square{"M0 0h24v24H0z"};
    PickerFixture f{{{u"block"_qs, u"Shapes"_qs, {}, square, square}}};
    QQmlEngine engine;

    std::unique_ptr<QObject> create(const QByteArray& qml)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport Pictray.Kit\n" + qml, QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            qWarning("%s", qPrintable(component.errorString()));
        return object;
    }

    QColor exported(const QString& color)
    {
        const IconExport item{f.library->icon(u"block"), IconStyle::filled, 24, 2, color};
        const QImage image =
            IconRenderer::bitmap(*f.library, item.icon, RenderOptions::forExport(item, 1, f.prefs));
        return image.pixelColor(12, 12);
    }

private slots:
    void initTestCase()
    {
        f.prefs.setPngPadding(0);
        registerKitQml(engine, *f.library);
    }

    void previewMatchesTheExport_data()
    {
        QTest::addColumn<QString>("color");
        for (const QString& color : {u"#DC2626"_qs, u"#DC262680"_qs, u"#0068DA40"_qs, u"#f808"_qs})
            QTest::addRow("%s", qPrintable(color)) << color;
    }
    void previewMatchesTheExport()
    {
        QFETCH(QString, color);
        const QColor expected = exported(color);
        QVERIFY(expected.alpha() > 0);
        const auto close = [&](const QColor& shown) {
            return qAbs(shown.red() - expected.red()) <= 2 &&
                   qAbs(shown.green() - expected.green()) <= 2 &&
                   qAbs(shown.blue() - expected.blue()) <= 2 &&
                   qAbs(shown.alpha() - expected.alpha()) <= 2;
        };

        const std::unique_ptr<QObject> glyph =
            create("IconGlyph { name: 'block'; filled: true; width: 24; height: 24; color: '" +
                   color.toUtf8() + "' }");
        QVERIFY(qobject_cast<IconGlyph*>(glyph.get()));
        const QImage drawn = qobject_cast<IconGlyph*>(glyph.get())->image(1);
        QVERIFY2(close(drawn.pixelColor(12, 12)),
                 qPrintable(drawn.pixelColor(12, 12).name(QColor::HexArgb) + u" drawn, "_qs +
                            expected.name(QColor::HexArgb) + u" exported"_qs));

        const std::unique_ptr<QObject> swatch =
            create("Swatch { value: '" + color.toUtf8() + "' }");
        QVERIFY(swatch);
        const auto* sample = swatch->findChild<QObject*>(u"swatchSample"_qs);
        QVERIFY(sample);
        const QColor shown = sample->property("color").value<QColor>();
        QVERIFY2(close(shown), qPrintable(shown.name(QColor::HexArgb) + u" shown"_qs));
    }
};

QTEST_MAIN(TestPreviewColor)
#include "tst_previewcolor.moc"
