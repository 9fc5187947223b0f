#include "Catalog/CatalogueCodec.h"
#include "Catalog/CompiledCatalogue.h"

#include <QFile>
#include <QTest>

namespace {

CatalogueFile shippedJson()
{
    QFile file(QStringLiteral(":/tabler-icons.json"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return CatalogueCodec::decode(file.readAll()).value_or(CatalogueFile());
}

// Everything the program reads of an icon, as one comparable text.
QString everything(const Icon& icon)
{
    QStringList parts{icon.id(), icon.category(), icon.tags().join(u','), icon.searchName(),
                      icon.searchTags().join(u',')};
    for (const IconStyle style : {IconStyle::outline, IconStyle::filled}) {
        const auto paths = icon.paths(style);
        parts << (paths ? QString::fromUtf8(paths->join('|')) : QStringLiteral("<none>"));
        for (const PathPaint& paint : icon.paints(style)) {
            for (const PathPaint::Attribute& attribute : paint.attributes())
                parts << QString::fromLatin1(PathPaint::text(attribute.name).toByteArray() + '=' +
                                             attribute.value);
            parts << QStringLiteral(";");
        }
    }
    return parts.join(u'\n');
}

void compareFiles(const CatalogueFile& read, const CatalogueFile& original)
{
    QCOMPARE(read.version, original.version);
    QCOMPARE(read.icons.size(), original.icons.size());
    for (qsizetype i = 0; i < original.icons.size(); ++i)
        QCOMPARE(everything(read.icons[i]), everything(original.icons[i]));
}

} // namespace

class TestCompiledCatalogue : public QObject {
    Q_OBJECT

private slots:
    void readsBackWhatTheJsonHolds()
    {
        const CatalogueFile original = shippedJson();
        QVERIFY(original.icons.size() > 5000);
        const QByteArray compiled = CompiledCatalogue::compile(original);
        QString error;
        const auto read = CompiledCatalogue::read(compiled, &error);
        QVERIFY2(read, qPrintable(error));
        compareFiles(*read, original);
    }

    // What the shipped set lacks: search forms that differ from the text, an
    // icon with one style only, an empty tag list.
    void readsBackRareShapes()
    {
        PathPaint half;
        half.add("opacity", ".5");
        PathPaint dot;
        dot.add("fill", "currentColor");
        dot.add("stroke", "none");
        const CatalogueFile original{
            QStringLiteral("9.0.0"),
            {Icon(QStringLiteral("Ünïcode-HDR"), QStringLiteral("Letters"),
                  {QStringLiteral("HDR"), QStringLiteral("plain")}, std::nullopt,
                  PathList{"M1 1h2", "M3 3h4"}, {{}, {half, dot}}),
             Icon(QStringLiteral("bare"), QString(), {}, PathList{}, std::nullopt)}};
        // The icons read are views into these bytes.
        const QByteArray compiled = CompiledCatalogue::compile(original);
        const auto read = CompiledCatalogue::read(compiled);
        QVERIFY(read);
        compareFiles(*read, original);
    }

    // The commands' library makes one icon for a lookup by name, and all of
    // them for anything else; either way they are the icons loaded at once.
    void iconsMadeOnDemandAreThoseMadeAtLoad()
    {
        const IconLibrary::Sources shipped{IconLibrary::shippedFilePath(), {}};
        const IconLibrary atLoad(shipped);
        const IconLibrary onDemand(shipped, IconLibrary::Making::onDemand);
        QCOMPARE(onDemand.version(), atLoad.version());
        for (const QString& name : {u"home"_qs, u"percentage-50"_qs, u"brand-github"_qs})
            QCOMPARE(everything(onDemand.icon(name)), everything(atLoad.icon(name)));
        QVERIFY(onDemand.icon(u"no-such-icon"_qs).isNull());
        QCOMPARE(onDemand.filledCount(), atLoad.filledCount());
        compareFiles({onDemand.version(), onDemand.icons()}, {atLoad.version(), atLoad.icons()});
        QCOMPARE(everything(onDemand.icon(u"home"_qs)), everything(atLoad.icon(u"home"_qs)));
    }

    void damagedBytesAreRefusedNotFollowed()
    {
        const CatalogueFile original = shippedJson();
        const QByteArray compiled = CompiledCatalogue::compile(original);
        QVERIFY(!CompiledCatalogue::read(compiled.first(compiled.size() / 2)));
        QVERIFY(!CompiledCatalogue::read(QByteArray("not a catalogue at all, but long enough")));
        // Overwriting a word anywhere (offsets, lengths, counts) must leave
        // the reader within the bytes; under the sanitizers an overrun fails.
        QList<qsizetype> places;
        for (qsizetype at = 8; at < 64; at += 4) // every word of the header
            places << at;
        for (qsizetype at = 64; at + 4 <= compiled.size(); at += compiled.size() / 97)
            places << (at & ~qsizetype(3));
        for (const qsizetype at : places) {
            QByteArray damaged = compiled;
            damaged.replace(at, 4, "\xff\xff\xff\x7f");
            // Tags, paths and paints are read when asked for: ask for all.
            if (const auto file = CompiledCatalogue::read(damaged)) {
                for (const Icon& icon : file->icons)
                    everything(icon);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestCompiledCatalogue)
#include "tst_compiledcatalogue.moc"
