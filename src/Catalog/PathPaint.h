#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <optional>

// How the icon set paints one path beyond the icon's own stroke or fill: the
// attributes it writes on that path element, in its order. Release 3.51 uses
// fill="currentColor" (a filled pie slice or dot), stroke="none" (no outline
// around it) and opacity (a half-tone part of a logo), and nothing else.
class PathPaint {
public:
    enum class Name : quint8 { fill, stroke, opacity };
    struct Attribute {
        Name name;
        QByteArray value; // as the icon set writes it, e.g. ".5"
        friend bool operator==(const Attribute&, const Attribute&) = default;
    };

    // Keeps a known attribute with a well-formed value; anything else is
    // ignored (false), so no unknown text ever reaches a snippet.
    bool add(QByteArrayView name, QByteArrayView value);

    const QList<Attribute>& attributes() const { return m_attributes; }
    bool isPlain() const { return m_attributes.isEmpty(); }
    // Whether the path is filled or stroked in the icon's colour; nullopt
    // where the icon's style decides.
    std::optional<bool> fill() const { return m_fill; }
    std::optional<bool> stroke() const { return m_stroke; }
    double opacity() const { return m_opacity; }

    static QByteArrayView text(Name name);

    friend bool operator==(const PathPaint& a, const PathPaint& b)
    {
        return a.m_attributes == b.m_attributes;
    }

private:
    QList<Attribute> m_attributes;
    std::optional<bool> m_fill;
    std::optional<bool> m_stroke;
    double m_opacity = 1;
};

// One PathPaint per path of a style, in drawing order; empty when every path
// is painted as the style says, as almost all are.
using PathPaints = QList<PathPaint>;
