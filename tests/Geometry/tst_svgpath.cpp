#include "Geometry/SVGPath.h"

#include <QLineF>
#include <QPainterPath>
#include <QRandomGenerator>
#include <QSizeF>
#include <QTest>
#include <charconv>
#include <cmath>

namespace {

// "M1,2 L3,4 C5,6 7,8 9,10": one entry per element, a cubic with its two
// data elements; coordinates rounded to three decimals.
QString describe(const QPainterPath& path)
{
    const auto number = [](double v) { return QString::number(std::round(v * 1000) / 1000 + 0.0); };
    QStringList parts;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element e = path.elementAt(i);
        const QString point = number(e.x) + u',' + number(e.y);
        if (e.type == QPainterPath::CurveToDataElement)
            parts.last() += u' ' + point;
        else
            parts << QChar(u"MLC"[e.type]) + point;
    }
    return parts.join(u' ');
}

} // namespace

class TestSVGPath : public QObject {
    Q_OBJECT

private slots:
    void geometry_data()
    {
        QTest::addColumn<QByteArray>("d");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* d, const char* expected) {
            QTest::newRow(d) << QByteArray(d) << QString::fromLatin1(expected);
        };
        row(" ,\t\r\n", "");
        row("M1 2 3 4", "M1,2 L3,4");
        row("m1 2 3 4", "M1,2 L4,6");
        row("L3 4", "M0,0 L3,4");
        row("M0 0L10-5", "M0,0 L10,-5");
        row("M0.5.5 1.5e1-1E-1 +2e+1,5.", "M0.5,0.5 L15,-0.1 L20,5");
        row("M10 10 h5 v5 H0 V0 l2 3 4 5", "M10,10 L15,10 L15,15 L0,15 L0,0 L2,3 L6,8");
        row("M10 10 c1 2 3 4 5 6 s4 4 6 0", "M10,10 C11,12 13,14 15,16 C17,18 19,20 21,16");
        row("M0 0 C0 10 10 10 10 0 S20 -10 20 0 30 10 30 0",
            "M0,0 C0,10 10,10 10,0 C10,-10 20,-10 20,0 C20,10 30,10 30,0");
        row("M0 0 L10 0 S20 10 20 0", "M0,0 L10,0 C10,0 20,10 20,0");
        row("M0 0 q5 10 10 0 t10 0",
            "M0,0 C3.333,6.667 6.667,6.667 10,0 C13.333,-6.667 16.667,-6.667 20,0");
        row("M0 0 L6 0 T12 6", "M0,0 L6,0 C6,0 8,2 12,6");
        row("M0 0 C0 10 10 10 10 0 T20 0", "M0,0 C0,10 10,10 10,0 C10,0 13.333,0 20,0");
        row("M1 1 L5 1 L5 5 Z l1 1", "M1,1 L5,1 L5,5 L1,1 M1,1 L2,2");
        row("M10 10 L20 10 L20 20 z m5 5 l1 0", "M10,10 L20,10 L20,20 L10,10 M15,15 L16,15");
        row("M3 3 A5 5 0 0 1 3 3 L4 4", "M3,3 L4,4");
        row("M0 0 A0 5 0 0 1 10 0", "M0,0 L10,0");
        row("M1 1 a5 0 0 0 0 4 4", "M1,1 L5,5");
    }
    void geometry()
    {
        QFETCH(QByteArray, d);
        QPainterPath path;
        const auto error = SVGPath::append(d, path);
        QVERIFY2(!error, qPrintable(error ? error->description() : QString()));
        QTEST(describe(path), "expected");
    }

    // Numbers are read by a short-decimal fast path; every value must be the
    // double the standard conversion gives, to the last bit.
    void numbersRoundLikeTheStandardConversion()
    {
        QRandomGenerator random(7);
        for (int i = 0; i < 20000; ++i) {
            const int digits = random.bounded(1, 18);
            QByteArray text = random.bounded(2) ? "-" : "";
            const int point = random.bounded(0, digits + 1);
            for (int d = 0; d < digits; ++d) {
                if (d == point)
                    text += '.';
                text += char('0' + random.bounded(10));
            }
            double expected = 0;
            std::from_chars(text.constData(), text.constData() + text.size(), expected);
            QPainterPath path;
            QVERIFY(!SVGPath::append("M" + text + " 0", path));
            QVERIFY2(path.elementAt(0).x == expected, text.constData());
        }
    }

    void eachStringStartsAtTheOrigin()
    {
        QPainterPath path;
        QVERIFY(!SVGPath::append("M5 5 L9 9", path));
        QVERIFY(!SVGPath::append("l1 1", path));
        QCOMPARE(describe(path), u"M5,5 L9,9 M0,0 L1,1");
    }

    void arcs_data()
    {
        QTest::addColumn<QByteArray>("d");
        QTest::addColumn<int>("segments");
        QTest::addColumn<QPointF>("centre");
        QTest::addColumn<QSizeF>("radii");
        QTest::addColumn<double>("angle");
        QTest::addColumn<QPointF>("firstJoint"); // where the first cubic ends
        QTest::addColumn<QPointF>("end");
        const auto row = [](const char* d, int segments, QPointF centre, QSizeF radii, double angle,
                            QPointF firstJoint, QPointF end) {
            QTest::newRow(d) << QByteArray(d) << segments << centre << radii << angle << firstJoint
                             << end;
        };
        row("M0 0 A5 5 0 0 1 10 0", 2, {5, 0}, {5, 5}, 0, {5, -5}, {10, 0});
        row("M0 0 A5 5 0 0 0 10 0", 2, {5, 0}, {5, 5}, 0, {5, 5}, {10, 0});
        row("M0 0 A-5 -5 0 0 1 10 0", 2, {5, 0}, {5, 5}, 0, {5, -5}, {10, 0});
        row("M0 0 A1 1 0 0 1 10 0", 2, {5, 0}, {5, 5}, 0, {5, -5}, {10, 0}); // radii grow
        // Rounding makes this sweep a hair over a quarter turn: still one segment.
        row("M0 0 A12 12 60 0 1 12 12", 1, {0, 12}, {12, 12}, 60, {12, 12}, {12, 12});
        row("M0 0 A10 10 0 1 1 10 10", 3, {10, 0}, {10, 10}, 0, {10, -10}, {10, 10});
        row("M10 10 a5 5 0 0 1 10 0", 2, {15, 10}, {5, 5}, 0, {15, 5}, {20, 10});
        const double r50 = std::sqrt(50.0);
        row("M0 0 a1 1 0 1110 10", 2, {5, 5}, {r50, r50}, 0, {10, 0}, {10, 10});
        row("M-8.660254037844386 -5 A10 5 30 0 1 8.660254037844386 5", 2, {0, 0}, {10, 5}, 30,
            {2.5, -4.330127018922193}, {8.660254037844386, 5});
    }
    void arcs()
    {
        QFETCH(QByteArray, d);
        QFETCH(int, segments);
        QFETCH(QPointF, centre);
        QFETCH(QSizeF, radii);
        QFETCH(double, angle);
        QFETCH(QPointF, firstJoint);
        QFETCH(QPointF, end);

        QPainterPath path;
        QVERIFY(!SVGPath::append(d, path));
        QCOMPARE(path.elementCount(), 1 + 3 * segments);
        // Exactly 1 on the ellipse: the point in the ellipse's rotated frame, over the radii.
        const double phi = qDegreesToRadians(angle);
        const auto ellipse = [&](QPointF p) {
            const QPointF v = p - centre;
            const double u = (std::cos(phi) * v.x() + std::sin(phi) * v.y()) / radii.width();
            const double w = (-std::sin(phi) * v.x() + std::cos(phi) * v.y()) / radii.height();
            return u * u + w * w;
        };
        for (int i = 1; i < path.elementCount(); i += 3) {
            QCOMPARE(path.elementAt(i).type, QPainterPath::CurveToElement);
            const QPointF start = path.elementAt(i - 1);
            const QPointF c1 = path.elementAt(i), c2 = path.elementAt(i + 1);
            const QPointF joint = path.elementAt(i + 2);
            QVERIFY2(std::abs(ellipse(joint) - 1) < 1e-9, qPrintable(describe(path)));
            const QPointF middle = (start + 3 * c1 + 3 * c2 + joint) / 8;
            QVERIFY2(std::abs(ellipse(middle) - 1) < 1e-3, qPrintable(describe(path)));
        }
        QVERIFY2(QLineF(path.elementAt(3), firstJoint).length() < 1e-6, qPrintable(describe(path)));
        // Exactly the requested end point, not merely near it (QPointF's == is fuzzy).
        const QPainterPath::Element last = path.elementAt(path.elementCount() - 1);
        QVERIFY2(last.x == end.x() && last.y == end.y(), qPrintable(describe(path)));
    }

    void errors_data()
    {
        QTest::addColumn<QByteArray>("d");
        QTest::addColumn<int>("offset");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("kept");
        const auto row = [](const char* d, int offset, const char* message, const char* kept) {
            QTest::newRow(d) << QByteArray(d) << offset << QString::fromLatin1(message)
                             << QString::fromLatin1(kept);
        };
        row("M0 0 X", 5, "expected number", "M0,0");
        row("10 10", 0, "expected command", "");
        row("M1 2 L3 4 Z 5", 12, "expected command", "M1,2 L3,4 L1,2");
        row("M1 2 L", 6, "expected number", "M1,2");
        row("M0 0 H4 V4 Q", 12, "expected number", "M0,0 L4,0 L4,4");
        row("M0 0 L-", 6, "expected number", "M0,0");
        row("M1;2", 2, "expected number", "");
        row("M1 2e+ 3", 4, "expected number", "M1,2");
        row("M0 0 L1e999 0", 6, "bad number 1e999", "M0,0");
        row("M0 0 A1 1 0 1", 13, "expected flag", "M0,0");
        row("M0 0 A1 1 0 2 0 5 5", 12, "expected arc flag", "M0,0");
    }
    void errors()
    {
        QFETCH(QByteArray, d);
        QFETCH(int, offset);
        QFETCH(QString, message);
        QPainterPath path;
        const auto error = SVGPath::append(d, path);
        QVERIFY(error);
        QCOMPARE(error->offset, offset);
        QCOMPARE(error->message, message);
        QTEST(describe(path), "kept");
    }

    void errorDescription()
    {
        QPainterPath path;
        QCOMPARE(SVGPath::append("M0 0 X", path)->description(),
                 u"SVG path parse error at 5: expected number");
    }
};

QTEST_GUILESS_MAIN(TestSVGPath)
#include "tst_svgpath.moc"
