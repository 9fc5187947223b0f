#include "Export/SnippetBuilder.h"

#include <QTest>
#include <QXmlStreamReader>
#include <functional>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(SnippetBuilder)
Q_DECLARE_METATYPE(IconExport)
Q_DECLARE_METATYPE(ExportFormat)

namespace {

PathList plusPaths()
{
    return {"M12 5v14", "M5 12h14"};
}
PathList plusFilledPaths()
{
    return {"M12 2a10 10 0 1 0 0 20a10 10 0 0 0 0 -20"};
}

IconExport plus(IconStyle style = IconStyle::outline, const QString& color = u"currentColor"_s)
{
    return {Icon(u"plus"_s, {}, {}, plusPaths(), plusFilledPaths()), style, 24, 2, color};
}

// A pie slice filled without outline between a plain circle and a plain
// line, as the percentage icons draw it, and a half-tone path.
IconExport pie(const QString& color = u"currentColor"_s)
{
    PathPaints paints(4);
    paints[1].add("fill", "currentColor");
    paints[1].add("stroke", "none");
    paints[3].add("opacity", ".5");
    return {Icon(u"pie"_s, {}, {},
                 PathList{"M3 12a9 9 0 1 0 18 0", "M21 12h-9v-9", "M1 1h2", "M4 4h2"}, std::nullopt,
                 {paints, {}}),
            IconStyle::outline, 24, 2, color};
}

IconExport named(const QString& id, std::optional<PathList> outline = plusPaths())
{
    return {Icon(id, {}, {}, std::move(outline), std::nullopt)};
}

// Where every worked example starts from: optimize off, no class, bare names.
SnippetBuilder plain()
{
    SnippetBuilder builder;
    builder.optimize = false;
    builder.classAttribute.clear();
    builder.reactName = u"{Name}"_s;
    builder.bladePrefix.clear();
    return builder;
}

SnippetBuilder with(const std::function<void(SnippetBuilder&)>& change)
{
    SnippetBuilder builder = plain();
    change(builder);
    return builder;
}

const QString multiLineSvg = uR"(<svg
  xmlns="http://www.w3.org/2000/svg"
  width="24"
  height="24"
  viewBox="0 0 24 24"
  fill="none"
  stroke="currentColor"
  stroke-width="2"
  stroke-linecap="round"
  stroke-linejoin="round"
>
  <path stroke="none" d="M0 0h24v24H0z" fill="none" />
  <path d="M12 5v14" />
  <path d="M5 12h14" />
</svg>)"_s;

const QString jsx = uR"(export function Plus(props) {
  return (
    <svg
      xmlns="http://www.w3.org/2000/svg"
      width={24}
      height={24}
      viewBox="0 0 24 24"
      fill="none"
      stroke="currentColor"
      strokeWidth={2}
      strokeLinecap="round"
      strokeLinejoin="round"
      {...props}
    >
      <path stroke="none" d="M0 0h24v24H0z" fill="none" />
      <path d="M12 5v14" />
      <path d="M5 12h14" />
    </svg>
  );
})"_s;

// The SVG two spaces in, each line.
const QString vueTemplate =
    u"<template>\n  "_s + QString(multiLineSvg).replace(u"\n"_s, u"\n  "_s) + u"\n</template>"_s;

const QString dataURI =
    uR"(data:image/svg+xml,%3Csvg%20xmlns=%22http://www.w3.org/2000/svg%22%20width=%2224%22%20height=%2224%22%20viewBox=%220%200%2024%2024%22%20fill=%22none%22%20stroke=%22currentColor%22%20stroke-width=%222%22%20stroke-linecap=%22round%22%20stroke-linejoin=%22round%22%3E%3Cpath%20d=%22M12%205v14M5%2012h14%22/%3E%3C/svg%3E)"_s;

QString tsx(const QString& name = u"Plus"_s)
{
    return u"import type { SVGProps } from \"react\";\n\n"_s +
           QString(jsx).replace(u"Plus(props)"_s, name + u"(props: SVGProps<SVGSVGElement>)"_s);
}

QString vueSfc()
{
    const QString script = uR"(<script setup>
defineProps({
  size: { type: [Number, String], default: 24 },
  strokeWidth: { type: [Number, String], default: 2 },
});
</script>

)"_s;
    return script + QString(vueTemplate)
                        .replace(u" width=\"24\""_s, u" :width=\"size\""_s)
                        .replace(u" height=\"24\""_s, u" :height=\"size\""_s)
                        .replace(u" stroke-width=\"2\""_s, u" :stroke-width=\"strokeWidth\""_s);
}

} // namespace

class TestSnippetBuilder : public QObject {
    Q_OBJECT

private slots:
    void workedExamples_data();
    void workedExamples();
    void iconExport_data();
    void iconExport();
    void rules_data();
    void rules();
    void componentName_data();
    void componentName();
    void sizesAndStrokes_data();
    void sizesAndStrokes();
    void percentEncoding_data();
    void percentEncoding();
    void percentEncodingFailure();
    void pngDescription_data();
    void pngDescription();
    void hostileValuesStayInTheirAttribute_data();
    void hostileValuesStayInTheirAttribute();
};

void TestSnippetBuilder::workedExamples_data()
{
    QTest::addColumn<SnippetBuilder>("builder");
    QTest::addColumn<IconExport>("item");
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<QString>("expected");

    const auto optimized = with([](auto& b) { b.optimize = true; });
    QTest::newRow("svg") << plain() << plus() << ExportFormat::svg << multiLineSvg;
    QTest::newRow("svg optimized")
        << optimized << plus() << ExportFormat::svg
        << uR"(<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24" fill="none" stroke="currentColor" stroke-width="2" stroke-linecap="round" stroke-linejoin="round"><path d="M12 5v14M5 12h14"/></svg>)"_s;
    QTest::newRow("svg filled")
        << optimized << plus(IconStyle::filled, u"#f00"_s) << ExportFormat::svg
        << uR"(<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24" fill="#f00"><path d="M12 2a10 10 0 1 0 0 20a10 10 0 0 0 0 -20"/></svg>)"_s;
    QTest::newRow("jsx") << with([](auto& b) { b.reactLanguage = ReactLanguage::jsx; }) << plus()
                         << ExportFormat::jsx << jsx;
    QTest::newRow("tsx") << plain() << plus() << ExportFormat::jsx << tsx();
    QTest::newRow("tsx named, with class")
        << with([](auto& b) {
               b.reactName = u"Icon{Name}"_s;
               b.classAttribute = u"icon icon-{name}"_s;
           })
        << plus() << ExportFormat::jsx
        << tsx(u"IconPlus"_s)
               .replace(u"strokeLinejoin=\"round\"\n"_s,
                        u"strokeLinejoin=\"round\"\n      className=\"icon icon-plus\"\n"_s);
    QTest::newRow("vue sfc") << plain() << plus() << ExportFormat::vue << vueSfc();
    QTest::newRow("vue template") << with([](auto& b) { b.vueStyle = VueStyle::templateOnly; })
                                  << plus() << ExportFormat::vue << vueTemplate;
    IconExport thin = plus(IconStyle::outline, u"#f00"_s);
    thin.stroke = 1.5;
    QTest::newRow("blade") << with([](auto& b) { b.ariaHidden = true; }) << thin
                           << ExportFormat::blade << uR"(<x-tabler-plus
  class="w-6 h-6 text-[#f00]"
  stroke-width="1.5"
  aria-hidden="true" />)"_s;
    QTest::newRow("blade plain") << plain() << plus() << ExportFormat::blade << uR"(<x-tabler-plus
  class="w-6 h-6" />)"_s;
    IconExport small = plus(IconStyle::outline, u"#f00"_s);
    small.size = 20;
    QTest::newRow("tailwind") << plain() << small << ExportFormat::tailwind << uR"(<svg
  xmlns="http://www.w3.org/2000/svg"
  viewBox="0 0 24 24"
  fill="none"
  stroke="currentColor"
  stroke-width="2"
  stroke-linecap="round"
  stroke-linejoin="round"
  class="size-5 shrink-0 text-[#f00]"
>
  <path stroke="none" d="M0 0h24v24H0z" fill="none" />
  <path d="M12 5v14" />
  <path d="M5 12h14" />
</svg>)"_s;
    QTest::newRow("data URI") << plain() << plus() << ExportFormat::dataURI << dataURI;
}

void TestSnippetBuilder::workedExamples()
{
    QFETCH(SnippetBuilder, builder);
    QFETCH(IconExport, item);
    QFETCH(ExportFormat, format);
    QTEST(builder.text(format, item), "expected");
}

void TestSnippetBuilder::iconExport_data()
{
    QTest::addColumn<IconExport>("item");
    QTest::addColumn<bool>("isFilled");
    QTest::addColumn<QString>("packageName");
    QTest::addColumn<PathList>("paths");

    IconExport noFilledForm = named(u"plus"_s);
    noFilledForm.style = IconStyle::filled;
    QTest::newRow("filled without a filled form")
        << noFilledForm << false << u"plus"_s << plusPaths();
    QTest::newRow("no outline form")
        << named(u"x"_s, std::nullopt) << false << u"x"_s << PathList();
}

void TestSnippetBuilder::iconExport()
{
    QFETCH(IconExport, item);
    QFETCH(bool, isFilled);
    QCOMPARE(item.isFilled(), isFilled);
    QTEST(item.packageName(), "packageName");
    QTEST(item.paths(), "paths");
}

void TestSnippetBuilder::rules_data()
{
    QTest::addColumn<SnippetBuilder>("builder");
    QTest::addColumn<IconExport>("item");
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("absent");

    const auto row = [](const char* name, const SnippetBuilder& builder, const IconExport& item,
                        ExportFormat format, const QStringList& present,
                        const QStringList& absent = {}) {
        QTest::newRow(name) << builder << item << format << present << absent;
    };
    const IconExport filled = plus(IconStyle::filled, u"#f00"_s);
    const SnippetBuilder optimized = with([](auto& b) { b.optimize = true; });
    const QString bbox = u"M0 0h24v24H0z"_s;

    // Optimized, so that no bounding-box path brings its stroke="none".
    row("filled react", optimized, filled, ExportFormat::jsx,
        {u"function PlusFilled("_s, u"\n      fill=\"#f00\"\n"_s}, {u"stroke"_s});
    row("filled vue", optimized, filled, ExportFormat::vue, {u"fill=\"#f00\""_s},
        {u"stroke"_s, u"strokeWidth"_s});
    row("filled tailwind", optimized, filled, ExportFormat::tailwind,
        {u"fill=\"currentColor\""_s, u"text-[#f00]"_s}, {u"stroke"_s});
    row("filled blade", plain(),
        [&] {
            IconExport e = filled;
            e.stroke = 1.5;
            return e;
        }(),
        ExportFormat::blade, {u"<x-tabler-plus-filled\n"_s}, {u"stroke-width"_s});

    const IconExport relative = named(u"r"_s, PathList{"M3 3h4", "m5 5h2"});
    row("merged", optimized, plus(), ExportFormat::jsx,
        {u"\n      <path d=\"M12 5v14M5 12h14\" />\n"_s}, {bbox});
    row("relative move kept apart", optimized, relative, ExportFormat::svg,
        {u"><path d=\"M3 3h4\"/><path d=\"m5 5h2\"/></svg>"_s});
    row("relative move kept apart in data URI", plain(), relative, ExportFormat::dataURI,
        {u"%3Cpath%20d=%22M3%203h4%22/%3E%3Cpath%20d=%22m5%205h2%22/%3E"_s});
    row("optimized vue stays multi-line", optimized, plus(), ExportFormat::vue,
        {u"\n  >\n    <path d=\"M12 5v14M5 12h14\" />\n  </svg>\n"_s}, {bbox});
    row("optimized tailwind stays multi-line", optimized, plus(), ExportFormat::tailwind,
        {u"\n>\n  <path d=\"M12 5v14M5 12h14\" />\n</svg>"_s}, {bbox});
    row("no paths, optimized", optimized, named(u"x"_s, std::nullopt), ExportFormat::svg,
        {u"><path d=\"\"/></svg>"_s});
    row("no paths, multi-line", plain(), named(u"x"_s, PathList()), ExportFormat::jsx,
        {u"fill=\"none\" />\n    </svg>"_s});

    // The icon set's own lines; the icon's colour stands for its currentColor,
    // and painted paths are never merged with their neighbours.
    const QString slice = uR"(<path d="M21 12h-9v-9" fill="currentColor" stroke="none" />)"_s;
    row("painted paths, multi-line", plain(), pie(), ExportFormat::svg,
        {u"\n  <path d=\"M3 12a9 9 0 1 0 18 0\" />\n  "_s + slice +
         u"\n  <path d=\"M1 1h2\" />\n  <path d=\"M4 4h2\" opacity=\".5\" />\n</svg>"_s});
    row("painted paths, optimized", optimized, pie(u"#f00"_s), ExportFormat::svg,
        {u"><path d=\"M3 12a9 9 0 1 0 18 0\"/><path d=\"M21 12h-9v-9\" fill=\"#f00\" "
         u"stroke=\"none\"/><path d=\"M1 1h2\"/><path d=\"M4 4h2\" opacity=\".5\"/></svg>"_s});
    row("painted paths in react", plain(), pie(), ExportFormat::jsx, {u"      "_s + slice});
    row("painted paths in tailwind", plain(), pie(u"#f00"_s), ExportFormat::tailwind,
        {u"  "_s + slice});

    const auto classes = [](const QString& value) {
        return with([value](auto& b) { b.classAttribute = value; });
    };
    row("class with name", classes(u"icon icon-{name}"_s), filled, ExportFormat::svg,
        {u"\n  class=\"icon icon-plus-filled\"\n"_s});
    row("class trimmed", classes(u"  {name}\t"_s), plus(), ExportFormat::vue,
        {u"\n    class=\"plus\"\n"_s});
    row("class of spaces", classes(u"   "_s), plus(), ExportFormat::jsx, {}, {u"className"_s});
    row("class placeholder is case-sensitive", classes(u"i-{Name}"_s), plus(), ExportFormat::svg,
        {u"class=\"i-{Name}\""_s});
    row("tailwind ignores the class template", classes(u"icon"_s), plus(), ExportFormat::tailwind,
        {u"class=\"size-6 shrink-0\""_s}, {u"icon"_s});

    row("blade colour compared exactly", plain(), plus(IconStyle::outline, u"CurrentColor"_s),
        ExportFormat::blade, {u"class=\"w-6 h-6 text-[CurrentColor]\" />"_s});
    row("blade prefix", with([](auto& b) { b.bladePrefix = u"x-icon-"_s; }), plus(),
        ExportFormat::blade, {u"<x-icon-plus\n"_s});
    row("blade ignores svg options", with([](auto& b) {
            b.includeSize = false;
            b.classAttribute = u"icon"_s;
        }),
        plus(), ExportFormat::blade, {u"class=\"w-6 h-6\" />"_s}, {u"icon"_s});
    row("tailwind keeps its colour", with([](auto& b) { b.tailwindCurrentColor = false; }),
        plus(IconStyle::outline, u"#f00"_s), ExportFormat::tailwind,
        {u"stroke=\"#f00\""_s, u"class=\"size-6 shrink-0\""_s});
    row("size left out", with([](auto& b) { b.includeSize = false; }), plus(), ExportFormat::vue,
        {u"default: 24 },"_s}, {u":width"_s});
}

void TestSnippetBuilder::rules()
{
    QFETCH(SnippetBuilder, builder);
    QFETCH(IconExport, item);
    QFETCH(ExportFormat, format);
    QFETCH(QStringList, present);
    QFETCH(QStringList, absent);
    const QString text = builder.text(format, item);
    for (const QString& piece : std::as_const(present))
        QVERIFY2(text.contains(piece), qPrintable(text));
    for (const QString& piece : std::as_const(absent))
        QVERIFY2(!text.contains(piece), qPrintable(text));
}

void TestSnippetBuilder::componentName_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("reactName");
    QTest::addColumn<QString>("expected");

    QTest::newRow("words") << u"arrow-up-right"_s << u"{Name}"_s << u"ArrowUpRight"_s;
    QTest::newRow("empty pieces") << u"-a--b-"_s << u"{Name}"_s << u"AB"_s;
    QTest::newRow("rest kept as is") << u"badge-4k-mIx"_s << u"{Name}"_s << u"Badge4kMIx"_s;
    QTest::newRow("leading digit") << u"2fa"_s << u"{Name}"_s << u"2fa"_s;
    QTest::newRow("non-ASCII") << u"\u00E9t\u00E9"_s << u"{Name}"_s << u"\u00C9t\u00E9"_s;
    QTest::newRow("suffix") << u"home"_s << u"{Name}Icon"_s << u"HomeIcon"_s;
    QTest::newRow("no placeholder") << u"home"_s << u"MyIcon"_s << u"IconHome"_s;
}

void TestSnippetBuilder::componentName()
{
    QFETCH(QString, id);
    QFETCH(QString, reactName);
    QFETCH(QString, expected);
    const SnippetBuilder builder = with([&](auto& b) { b.reactName = reactName; });
    const QString text = builder.text(ExportFormat::jsx, named(id));
    QVERIFY2(text.contains(u"export function "_s + expected + u'('), qPrintable(text));
}

void TestSnippetBuilder::sizesAndStrokes_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<double>("stroke");
    QTest::addColumn<QString>("tailwindSize");
    QTest::addColumn<QString>("number");

    QTest::newRow("16") << 16 << 2.0 << u"4"_s << u"2"_s;
    QTest::newRow("17") << 17 << 2.0 << u"[17px]"_s << u"2"_s;
    QTest::newRow("18") << 18 << 2.0 << u"4.5"_s << u"2"_s;
    QTest::newRow("1.5") << 24 << 1.5 << u"6"_s << u"1.5"_s;
    QTest::newRow("1/3") << 24 << 1.0 / 3 << u"6"_s << u"0.333333"_s;
    QTest::newRow("exponent") << 24 << 0.00001 << u"6"_s << u"1e-05"_s;
}

void TestSnippetBuilder::sizesAndStrokes()
{
    QFETCH(int, size);
    QFETCH(double, stroke);
    QFETCH(QString, tailwindSize);
    QFETCH(QString, number);
    IconExport item = plus();
    item.size = size;
    item.stroke = stroke;
    const SnippetBuilder builder = plain();
    const QString strokeLine = stroke == 2 ? QString() : u"\n  stroke-width=\"%1\""_s.arg(number);
    QCOMPARE(builder.text(ExportFormat::blade, item),
             u"<x-tabler-plus\n  class=\"w-%1 h-%1\"%2 />"_s.arg(tailwindSize, strokeLine));
    QVERIFY(builder.text(ExportFormat::tailwind, item)
                .contains(u"class=\"size-%1 shrink-0\""_s.arg(tailwindSize)));
    QVERIFY(builder.text(ExportFormat::svg, item).contains(u"stroke-width=\"%1\""_s.arg(number)));
}

void TestSnippetBuilder::percentEncoding_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("encoded");

    QTest::newRow("hash") << u"#f00"_s << u"%23f00"_s;
    QTest::newRow("spaces and percent") << u"rgb(0 0 0 / 50%)"_s << u"rgb(0%200%200%20/%2050%25)"_s;
    QTest::newRow("kept punctuation") << u"-._~!*'()/:;=,@$"_s << u"-._~!*'()/:;=,@$"_s;
    QTest::newRow("query characters") << u"a+b?c&d[e]"_s << u"a%2Bb%3Fc%26d%5Be%5D"_s;
    QTest::newRow("letters, marks, numbers")
        << u"gr\u00FCn e\u0301 \u00B2"_s << u"gr\u00FCn%20e\u0301%20\u00B2"_s;
    QTest::newRow("symbols") << u"\u00D7\U0001F600"_s << u"%C3%97%F0%9F%98%80"_s;
}

void TestSnippetBuilder::percentEncoding()
{
    QFETCH(QString, color);
    QFETCH(QString, encoded);
    const QString text = plain().text(ExportFormat::dataURI, plus(IconStyle::outline, color));
    QVERIFY2(text.contains(u"stroke=%22"_s + encoded + u"%22"_s), qPrintable(text));
}

// Text without a UTF-8 form cannot be encoded: it is used as it is, only its
// spaces are escaped.
void TestSnippetBuilder::percentEncodingFailure()
{
    const IconExport item = plus(IconStyle::outline, QString(QChar(0xD800)));
    const QString text = plain().text(ExportFormat::dataURI, item);
    QCOMPARE(text, u"data:image/svg+xml,"_s + plain().svg(item, true).replace(u' ', u"%20"_s));
}

void TestSnippetBuilder::pngDescription_data()
{
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<int>("padding");
    QTest::addColumn<PNGBackground>("background");
    QTest::addColumn<QString>("expected");

    QTest::newRow("png1") << ExportFormat::png1 << 0 << PNGBackground::white
                          << u"plus-filled.png\n24 \u00D7 24 px \u00B7 white"_s;
    QTest::newRow("png2") << ExportFormat::png2 << 2 << PNGBackground::black
                          << u"plus-filled@2x.png\n56 \u00D7 56 px \u00B7 black"_s;
    QTest::newRow("png3") << ExportFormat::png3 << 4 << PNGBackground::transparent
                          << u"plus-filled@3x.png\n96 \u00D7 96 px \u00B7 transparent"_s;
}

void TestSnippetBuilder::pngDescription()
{
    QFETCH(ExportFormat, format);
    QFETCH(int, padding);
    QFETCH(PNGBackground, background);
    QFETCH(QString, expected);
    const SnippetBuilder builder = with([&](auto& b) {
        b.pngPadding = padding;
        b.pngBackground = background;
    });
    QCOMPARE(builder.text(format, plus(IconStyle::filled)),
             expected + u"\nCopied to clipboard as image"_s);
}

// Values from settings or a downloaded catalogue that try to end their
// attribute stay inside it, and read back as they were written.
void TestSnippetBuilder::hostileValuesStayInTheirAttribute_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("classes");
    QTest::addColumn<QByteArray>("path");

    const QString quote = u"red\" onload=\"alert(1)"_s;
    QTest::newRow("colour") << quote << QString() << QByteArray("M1 1");
    QTest::newRow("class") << u"#f00"_s << u"a\" onclick=\"b {name}"_s << QByteArray("M1 1");
    QTest::newRow("path") << u"#f00"_s << QString()
                          << QByteArray(R"(M0 0"/><script>alert(1)</script><path d=")");
    QTest::newRow("reference") << u"&quot;&#62;"_s << u"&lt;script&gt;"_s << QByteArray("M1 1");
}

void TestSnippetBuilder::hostileValuesStayInTheirAttribute()
{
    QFETCH(QString, color);
    QFETCH(QString, classes);
    QFETCH(QByteArray, path);
    const IconExport item{Icon(u"x"_s, {}, {}, PathList{path}, std::nullopt), IconStyle::outline,
                          24, 2, color};
    for (const bool optimize : {false, true}) {
        const SnippetBuilder builder = with([&](auto& b) {
            b.optimize = optimize;
            b.classAttribute = classes;
        });
        for (const ExportFormat format :
             {ExportFormat::jsx, ExportFormat::vue, ExportFormat::blade, ExportFormat::tailwind}) {
            const QString text = builder.text(format, item);
            QVERIFY2(!text.contains(u"<script>"_s) && !text.contains(u"\" on"_s), qPrintable(text));
        }
        QXmlStreamReader svg(builder.svg(item, false));
        QStringList paths;
        while (svg.readNextStartElement()) {
            if (svg.name() == u"svg"_s) {
                QCOMPARE(svg.attributes().value(u"stroke"_s), color);
                QCOMPARE(svg.attributes().value(u"class"_s), classes.replace(u"{name}"_s, u"x"_s));
                continue;
            }
            paths += svg.attributes().value(u"d"_s).toString();
            svg.skipCurrentElement();
        }
        QVERIFY2(!svg.hasError(), qPrintable(svg.errorString()));
        QCOMPARE(paths.last(), QString::fromUtf8(path));
    }
}

QTEST_GUILESS_MAIN(TestSnippetBuilder)
#include "tst_snippetbuilder.moc"
