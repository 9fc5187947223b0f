#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"
#include "RsvgReference.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const auto outline = IconStyle::outline;
const auto filled = IconStyle::filled;

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

// Shapes with known pixels: a full box, a block in the top-left quarter, a
// horizontal bar (no filled form), a square ring, a dot narrower than the pen
// and two filled squares drawn in opposite directions, one over the other.
IconLibrary::File shapes()
{
    const auto shape = [](const char* id, const char* d, bool fillable) {
        return Icon(QString::fromLatin1(id), {}, {}, PathList{d},
                    fillable ? std::optional(PathList{d}) : std::nullopt);
    };
    // Outline paths the icon set paints itself: a square filled without
    // stroke, one filled and stroked, a bar at half opacity.
    const auto painted = [](const char* id, const char* d,
                            std::initializer_list<std::pair<const char*, const char*>> attributes) {
        PathPaint paint;
        for (const auto& [name, value] : attributes)
            paint.add(name, value);
        return Icon(QString::fromLatin1(id), {}, {}, PathList{d}, std::nullopt, {{paint}, {}});
    };
    return {u"1"_s,
            {shape("box", "M0 0h24v24H0z", true), shape("block", "M0 0h12v6H0z", true),
             shape("bar", "M2 12h20", false), shape("ring", "M4 4h16v16H4z", true),
             shape("dot", "M11.5 12a.5 .5 0 1 0 1 0a.5 .5 0 1 0 -1 0", false),
             Icon(u"overlap"_s, {}, {}, PathList{"M2 2h20v20H2z"},
                  PathList{"M2 2h20v20H2z", "M6 6v12h12V6z"}),
             painted("slice", "M4 4h16v16H4z", {{"fill", "currentColor"}, {"stroke", "none"}}),
             painted("tile", "M4 4h16v16H4z", {{"fill", "currentColor"}}),
             painted("fade", "M2 12h20", {{"opacity", ".5"}})}};
}

} // namespace

class TestIconRenderer : public QObject {
    Q_OBJECT

    IconLibrary m_shapes{{}};
    IconLibrary m_catalogue{{IconLibrary::shippedFilePath(), {}}};

    QImage render(const char* name, const IconRenderer::Options& options)
    {
        return IconRenderer::bitmap(m_shapes, m_shapes.icon(QString::fromLatin1(name)), options);
    }

private slots:
    void initTestCase() { m_shapes.apply(shapes()); }

    // Probes are "x,y=alpha" in pixels; a side of 0 means no image.
    void pixels()
    {
        struct Case {
            const char* icon;
            IconRenderer::Options options;
            int side;
            const char* probes;
        };
        const Case cases[] = {
            {"box", options(filled, 24, 0, 3), 72, "0,0=255 71,71=255"},
            {"box", options(filled, 24, 4, 2), 64, "7,7=0 8,8=255 55,55=255 56,56=0 0,63=0"},
            {"box", options(filled, 16.4, 0, 1), 16, ""},
            {"box", options(filled, 0.4, 0, 1), 0, ""},
            {"block", options(filled, 24, 0, 2), 48, "2,2=255 23,11=255 2,12=0 2,40=0 40,2=0"},
            {"bar", options(outline, 24, 0, 2), 48, "24,21=0 24,22=255 24,25=255 24,26=0"},
            {"bar", options(outline, 24, 0, 2, 1), 48, "24,22=0 24,23=255 24,24=255 24,25=0"},
            {"bar", options(outline, 24, 0, 2, 0), 48, "24,23=0"},
            {"bar", options(filled, 24, 0, 2), 48, "24,22=255 24,20=0"}, // no filled form
            {"ring", options(filled, 24, 0, 2), 48, "24,24=255 8,24=255"},
            {"ring", options(outline, 24, 0, 2), 48, "24,24=0 8,24=255 12,24=0"},
            // Each filled path is filled on its own: no hole where they overlap.
            {"overlap", options(filled, 24, 0, 2), 48, "24,24=255 6,6=255 2,2=0"},
            {"dot", options(outline, 24, 0, 4), 96, "47,47=255 48,48=255 43,48=255"},
            {"slice", options(outline, 24, 0, 2), 48, "24,24=255 8,24=255 7,24=0"},
            {"slice", options(outline, 24, 0, 2, 0), 48, "24,24=255"}, // a fill needs no pen
            {"tile", options(outline, 24, 0, 2), 48, "24,24=255 6,24=255 5,24=0"},
            {"fade", options(outline, 24, 0, 2), 48, "24,22=128 24,25=128 24,26=0"},
        };
        for (const Case& c : cases) {
            const QImage image = render(c.icon, c.options);
            QCOMPARE(image.size(), QSize(c.side, c.side));
            if (!image.isNull())
                QCOMPARE(image.devicePixelRatio(), c.options.scale);
            for (const QString& probe :
                 QString::fromLatin1(c.probes).split(u' ', Qt::SkipEmptyParts)) {
                const QStringList at = QString(probe).replace(u'=', u',').split(u',');
                const int alpha = qAlpha(image.pixel(at[0].toInt(), at[1].toInt()));
                const QString what = QLatin1String(c.icon) + u' ' + probe + u" got %1"_s.arg(alpha);
                QVERIFY2(std::abs(alpha - at[2].toInt()) <= 2, qPrintable(what));
            }
        }
    }

    void backgroundAndPNG()
    {
        IconRenderer::Options white = options(outline, 24, 4, 2);
        white.color = Qt::red;
        white.background = Qt::white;
        const QImage image = render("bar", white);
        QCOMPARE(image.pixel(0, 0), qRgb(255, 255, 255));
        QCOMPARE(image.pixel(32, 32), qRgb(255, 0, 0));

        IconRenderer::Options onPC = options(outline, 24, 0, 2);
        onPC.rendition = Rendition::pc;
        const QImage clear = render("bar", onPC);
        for (int y = 0; y < 48; ++y) { // nothing outside the bar's four rows
            for (int x = 0; x < 48 && (y < 22 || y > 25); ++x)
                QCOMPARE(qAlpha(clear.pixel(x, y)), 0);
        }
        QImage decoded = QImage::fromData(IconRenderer::encodePNG(clear), "PNG");
        QCOMPARE(decoded.dotsPerMeterX(), qRound(2 * 96 / 0.0254)); // 2x the 1x resolution
        decoded.setDevicePixelRatio(2);
        QCOMPARE(decoded.convertToFormat(clear.format()), clear);

        IconRenderer::Options onMac = onPC;
        onMac.rendition = Rendition::mac; // a Mac's 1x image has 72 pixels per inch
        QCOMPARE(render("bar", onMac).dotsPerMeterX(), qRound(2 * 72 / 0.0254));
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

    // Real icons against librsvg at 2x: arcs, smooth curves, dots, joins and
    // holes. The limits sit above the worst of these samples and well below
    // what a broken arc, a flipped axis or a wrong stroke width gives.
    void matchesLibrsvg()
    {
        if (RsvgReference::program().isEmpty())
            QSKIP("rsvg-convert is not installed");
        QList<IconExport> samples;
        for (const char* name : {"settings", "email-stamp", "dialpad", "a-b-2", "brand-github",
                                 "chart-pie", "bell", "clock", "star", "dice-6", "arrow-left",
                                 "percentage-25", "brand-parsinta", "accessible"})
            samples += {m_catalogue.icon(QString::fromLatin1(name)), outline, 24, 2};
        for (const char* name : {"settings", "laurel-wreath-2", "live-photo", "mood-smile",
                                 "camera", "heart", "arrow-left"})
            samples += {m_catalogue.icon(QString::fromLatin1(name)), filled, 24, 2};
        samples += {m_catalogue.icon(u"circle"), outline, 24, 1};
        samples += {m_catalogue.icon(u"home"), outline, 24, 1.5};
        QString error;
        const QList<QImage> references = RsvgReference::render(samples, 2, &error);
        QVERIFY2(references.size() == samples.size(), qPrintable(error));
        for (qsizetype i = 0; i < samples.size(); ++i) {
            const IconExport& s = samples[i];
            const auto difference = RsvgReference::alphaDifference(
                IconRenderer::bitmap(m_catalogue, s.icon, options(s.style, 24, 0, 2, s.stroke)),
                references[i]);
            const QString what = u"%1 stroke %2: mean %3 max %4"_s.arg(s.packageName())
                                     .arg(s.stroke)
                                     .arg(difference.mean)
                                     .arg(difference.max);
            QVERIFY2(difference.mean < 2 && difference.max < 192, qPrintable(what));
        }
    }
};

QTEST_MAIN(TestIconRenderer)
#include "tst_iconrenderer.moc"
