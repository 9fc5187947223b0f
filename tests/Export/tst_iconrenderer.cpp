#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"
#include "RsvgReference.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(IconStyle)
Q_DECLARE_METATYPE(IconRenderer::Options)

namespace {

Icon icon(const QString& id, PathList outline, std::optional<PathList> filled = {})
{
    return Icon(id, {}, {}, std::move(outline), std::move(filled));
}

IconRenderer::Options options(IconStyle style, double pointSize, double padding, double scale,
                              double stroke = 2)
{
    IconRenderer::Options options;
    options.style = style;
    options.pointSize = pointSize;
    options.padding = padding;
    options.scale = scale;
    options.stroke = stroke;
    return options;
}

} // namespace

class TestIconRenderer : public QObject {
    Q_OBJECT

    // Shapes whose pixels are known: a full box, a block in the top-left
    // quarter, a horizontal bar, a square ring and a dot narrower than the pen.
    IconLibrary m_shapes{{}};
    IconLibrary m_catalogue{{IconLibrary::shippedFilePath(), {}}};

    QImage render(const QString& name, const IconRenderer::Options& options)
    {
        return IconRenderer::bitmap(m_shapes, m_shapes.icon(name), options);
    }

private slots:
    void initTestCase()
    {
        m_shapes.apply({u"1"_s,
                        {icon(u"box"_s, {"M0 0h24v24H0z"}, PathList{"M0 0h24v24H0z"}),
                         icon(u"block"_s, {"M0 0h12v6H0z"}, PathList{"M0 0h12v6H0z"}),
                         icon(u"bar"_s, {"M2 12h20"}),
                         icon(u"ring"_s, {"M4 4h16v16H4z"}, PathList{"M4 4h16v16H4z"}),
                         icon(u"dot"_s, {"M11.5 12a.5 .5 0 1 0 1 0a.5 .5 0 1 0 -1 0"})}});
        QVERIFY(m_catalogue.iconCount() > 5000);
    }

    // probes: "x,y=alpha ..." in pixels; side 0 means no image.
    void pixels_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<IconRenderer::Options>("options");
        QTest::addColumn<int>("side");
        QTest::addColumn<QString>("probes");
        const auto filled = IconStyle::filled;
        const auto outline = IconStyle::outline;
        QTest::newRow("24pt @3x") << u"box"_s << options(filled, 24, 0, 3) << 72
                                  << u"0,0=255 71,71=255"_s;
        QTest::newRow("padding 4 @2x: icon in the central 48")
            << u"box"_s << options(filled, 24, 4, 2) << 64
            << u"7,7=0 8,8=255 55,55=255 56,56=0 0,63=0 63,0=0"_s;
        QTest::newRow("16.4pt @1x rounds")
            << u"box"_s << options(filled, 16.4, 0, 1) << 16 << u""_s;
        QTest::newRow("under a pixel") << u"box"_s << options(filled, 0.4, 0, 1) << 0 << u""_s;
        QTest::newRow("y runs down") << u"block"_s << options(filled, 24, 0, 2) << 48
                                     << u"2,2=255 23,11=255 2,12=0 2,40=0 40,2=0"_s;
        QTest::newRow("stroke 2 @2x is 4 px") << u"bar"_s << options(outline, 24, 0, 2) << 48
                                              << u"24,21=0 24,22=255 24,25=255 24,26=0"_s;
        QTest::newRow("stroke 1 @2x is 2 px") << u"bar"_s << options(outline, 24, 0, 2, 1) << 48
                                              << u"24,22=0 24,23=255 24,24=255 24,25=0"_s;
        QTest::newRow("zero stroke draws nothing")
            << u"bar"_s << options(outline, 24, 0, 2, 0) << 48 << u"24,23=0"_s;
        QTest::newRow("filled fills")
            << u"ring"_s << options(filled, 24, 0, 2) << 48 << u"24,24=255 8,24=255"_s;
        QTest::newRow("outline strokes")
            << u"ring"_s << options(outline, 24, 0, 2) << 48 << u"24,24=0 8,24=255 12,24=0"_s;
        QTest::newRow("filled without a filled form strokes")
            << u"bar"_s << options(filled, 24, 0, 2) << 48 << u"24,22=255 24,20=0"_s;
        QTest::newRow("dots are solid")
            << u"dot"_s << options(outline, 24, 0, 4) << 96 << u"47,47=255 48,48=255 43,48=255"_s;
    }

    void pixels()
    {
        QFETCH(QString, name);
        QFETCH(IconRenderer::Options, options);
        QFETCH(int, side);
        QFETCH(QString, probes);
        const QImage image = render(name, options);
        if (side == 0)
            QVERIFY(image.isNull());
        else
            QCOMPARE(image.size(), QSize(side, side));
        if (image.isNull())
            return;
        QCOMPARE(image.devicePixelRatio(), options.scale);
        for (const QString& probe : probes.split(u' ', Qt::SkipEmptyParts)) {
            const QStringList parts = probe.split(QRegularExpression(u"[,=]"_s));
            const int alpha = qAlpha(image.pixel(parts[0].toInt(), parts[1].toInt()));
            if (std::abs(alpha - parts[2].toInt()) > 2)
                QFAIL(qPrintable(u"alpha %1 at "_s.arg(alpha) + probe));
        }
    }

    void backgroundAndColour()
    {
        IconRenderer::Options white = options(IconStyle::outline, 24, 4, 2);
        white.color = Qt::red;
        white.background = Qt::white;
        const QImage image = render(u"bar"_s, white);
        QCOMPARE(image.pixel(0, 0), qRgb(255, 255, 255));
        QCOMPARE(image.pixel(63, 63), qRgb(255, 255, 255));
        QCOMPARE(image.pixel(32, 32), qRgb(255, 0, 0));

        // Transparent: nothing but the bar's four rows has any alpha.
        const QImage clear = render(u"bar"_s, options(IconStyle::outline, 24, 0, 2));
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 48; ++x) {
                if ((y < 22 || y > 25) && qAlpha(clear.pixel(x, y)) != 0)
                    QFAIL(qPrintable(u"alpha at %1,%2"_s.arg(x).arg(y)));
            }
        }
    }

    void png()
    {
        const QImage image = render(u"bar"_s, options(IconStyle::outline, 24, 0, 2));
        const QImage decoded = QImage::fromData(IconRenderer::encodePNG(image), "PNG");
        QCOMPARE(decoded.size(), QSize(48, 48));
        QImage back = decoded.convertToFormat(image.format());
        back.setDevicePixelRatio(image.devicePixelRatio()); // PNG has no such field
        QCOMPARE(back, image);
        // 2x the desktop's 1x resolution, so apps that honour it show 24 points.
        QCOMPARE(decoded.dotsPerMeterX(), qRound(2 * 96 / 0.0254));
        QCOMPARE(decoded.dotsPerMeterY(), decoded.dotsPerMeterX());
    }

    void templateImage()
    {
        QVERIFY(IconRenderer::templateImage(m_shapes, u"nothing", 16, 2).isNull());
        const QIcon image = IconRenderer::templateImage(m_shapes, u"ring", 16, 2);
        QVERIFY(image.isMask());
        for (const double scale : {1.0, 2.0}) {
            const QImage pixels = image.pixmap(QSize(16, 16), scale).toImage();
            QCOMPARE(pixels.size(), QSize(16, 16) * scale);
            QCOMPARE(pixels.pixel(QPoint(2, 8) * scale), qRgb(0, 0, 0));
            QCOMPARE(qAlpha(pixels.pixel(QPoint(8, 8) * scale)), 0);
        }
    }

    // Real icons against librsvg at 2x: curves, arcs, smooth segments, dots,
    // joins and holes. Limits sit above the worst of these samples and well
    // below what a broken arc, a flipped axis or a wrong stroke width gives.
    void matchesLibrsvg_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<IconStyle>("style");
        QTest::addColumn<double>("stroke");
        const auto add = [](const char* name, IconStyle style, double stroke = 2) {
            QTest::addRow("%s %s %g", name, qPrintable(rawValue(style)), stroke)
                << QString::fromLatin1(name) << style << stroke;
        };
        for (const char* name : {"settings", "email-stamp", "dialpad", "a-b-2", "brand-github",
                                 "chart-pie", "bell", "clock", "star", "dice-6", "arrow-left"})
            add(name, IconStyle::outline);
        for (const char* name : {"settings", "laurel-wreath-2", "live-photo", "mood-smile",
                                 "camera", "heart", "arrow-left"})
            add(name, IconStyle::filled);
        add("circle", IconStyle::outline, 1);
        add("home", IconStyle::outline, 1.5);
        add("brand-github", IconStyle::outline, 2.75);
    }

    void matchesLibrsvg()
    {
        if (RsvgReference::program().isEmpty())
            QSKIP("rsvg-convert is not installed");
        QFETCH(QString, name);
        QFETCH(IconStyle, style);
        QFETCH(double, stroke);
        const Icon real = m_catalogue.icon(name);
        QVERIFY(!real.isNull());
        QString error;
        const QList<QImage> reference =
            RsvgReference::render({IconExport{real, style, 24, stroke, u"#000000"_s}}, 2, &error);
        QVERIFY2(reference.size() == 1, qPrintable(error));
        const QImage ours =
            IconRenderer::bitmap(m_catalogue, real, options(style, 24, 0, 2, stroke));
        const RsvgReference::AlphaDifference difference =
            RsvgReference::alphaDifference(ours, reference.first());
        qDebug("mean %.3f max %d", difference.mean, difference.max);
        QVERIFY2(difference.mean < 2, qPrintable(QString::number(difference.mean)));
        QVERIFY2(difference.max < 192, qPrintable(QString::number(difference.max)));
    }
};

QTEST_MAIN(TestIconRenderer)
#include "tst_iconrenderer.moc"
