#include "SVGPath.h"

#include "SVGArc.h"
#include "SVGPathScanner.h"

#include <QLatin1Char>
#include <QPointF>
#include <span>
#include <string_view>

QString SVGPath::ParseError::description() const
{
    return QStringLiteral("SVG path parse error at %1: %2").arg(offset).arg(message);
}

namespace {

constexpr std::string_view commandLetters = "MmLlHhVvCcSsQqTtAaZz";

// The command loop and the state carried from one command to the next.
class PathParser {
public:
    PathParser(QByteArrayView d, QPainterPath& path) : m_scanner(d), m_path(path) {}

    std::optional<SVGPath::ParseError> run()
    {
        for (;;) {
            m_scanner.skipSeparators();
            if (m_scanner.atEnd())
                return std::nullopt;
            char command = m_scanner.current();
            if (commandLetters.find(command) != std::string_view::npos) {
                m_scanner.advance();
            } else if (m_last == 0 || m_last == 'Z' || m_last == 'z') {
                // Nothing to repeat: close takes no arguments, so repeating it
                // would never consume the bytes.
                m_scanner.fail(m_scanner.position(), QStringLiteral("expected command"));
                return m_scanner.error();
            } else {
                command = m_last == 'M' ? 'L' : m_last == 'm' ? 'l' : m_last;
            }
            if (!execute(command))
                return m_scanner.error();
            m_last = command;
        }
    }

private:
    bool read(std::span<double> values)
    {
        for (double& value : values) {
            const std::optional<double> number = m_scanner.number();
            if (!number)
                return false;
            value = *number;
        }
        return true;
    }

    bool lastWasCubic() const
    {
        return std::string_view("CcSs").find(m_last) != std::string_view::npos;
    }
    bool lastWasQuad() const
    {
        return std::string_view("QqTt").find(m_last) != std::string_view::npos;
    }

    bool execute(char command)
    {
        // Every point of a relative command is offset by the point it starts from.
        const bool relative = command >= 'a';
        const QPointF base = relative ? m_current : QPointF();
        const auto at = [&base](double x, double y) { return base + QPointF(x, y); };
        double v[6];
        switch (command) {
        case 'M':
        case 'm':
            if (!read({v, 2}))
                return false;
            m_current = m_subpathStart = at(v[0], v[1]);
            m_path.moveTo(m_current);
            m_started = true;
            return true;
        case 'L':
        case 'l':
            if (!read({v, 2}))
                return false;
            lineTo(at(v[0], v[1]));
            return true;
        case 'H':
        case 'h':
            if (!read({v, 1}))
                return false;
            lineTo({v[0] + base.x(), m_current.y()});
            return true;
        case 'V':
        case 'v':
            if (!read({v, 1}))
                return false;
            lineTo({m_current.x(), v[0] + base.y()});
            return true;
        case 'C':
        case 'c':
            if (!read({v, 6}))
                return false;
            cubicTo(at(v[0], v[1]), at(v[2], v[3]), at(v[4], v[5]));
            return true;
        case 'S':
        case 's':
            if (!read({v, 4}))
                return false;
            cubicTo(lastWasCubic() ? 2 * m_current - m_cubicControl : m_current, at(v[0], v[1]),
                    at(v[2], v[3]));
            return true;
        case 'Q':
        case 'q':
            if (!read({v, 4}))
                return false;
            quadTo(at(v[0], v[1]), at(v[2], v[3]));
            return true;
        case 'T':
        case 't':
            if (!read({v, 2}))
                return false;
            quadTo(lastWasQuad() ? 2 * m_current - m_quadControl : m_current, at(v[0], v[1]));
            return true;
        case 'A':
        case 'a':
            return arc(base);
        case 'Z':
        case 'z':
            if (m_started)
                m_path.closeSubpath();
            m_current = m_subpathStart;
            return true;
        default:
            m_scanner.fail(m_scanner.position() - 1,
                           QStringLiteral("unknown command ") + QLatin1Char(command));
            return false;
        }
    }

    bool arc(QPointF base)
    {
        double v[3];
        if (!read(v))
            return false;
        const std::optional<bool> largeArc = m_scanner.flag();
        if (!largeArc)
            return false;
        const std::optional<bool> sweep = m_scanner.flag();
        if (!sweep)
            return false;
        double end[2];
        if (!read(end))
            return false;
        const QPointF to = base + QPointF(end[0], end[1]);
        startSubpathIfNeeded();
        SVGArc{v[0], v[1], v[2], *largeArc, *sweep}.appendTo(m_path, m_current, to);
        m_current = to;
        return true;
    }

    // A string that draws before its first move starts at (0, 0), not where
    // earlier strings appended to the same path left off.
    void startSubpathIfNeeded()
    {
        if (!m_started) {
            m_path.moveTo(m_current);
            m_started = true;
        }
    }
    void lineTo(QPointF to)
    {
        startSubpathIfNeeded();
        m_path.lineTo(to);
        m_current = to;
    }
    void cubicTo(QPointF control1, QPointF control2, QPointF to)
    {
        startSubpathIfNeeded();
        m_path.cubicTo(control1, control2, to);
        m_cubicControl = control2;
        m_current = to;
    }
    void quadTo(QPointF control, QPointF to)
    {
        startSubpathIfNeeded();
        m_path.quadTo(control, to);
        m_quadControl = control;
        m_current = to;
    }

    SVGPath::Scanner m_scanner;
    QPainterPath& m_path;
    QPointF m_current;
    QPointF m_subpathStart;
    // Meaningful only while m_last says the previous segment was of that kind.
    QPointF m_cubicControl;
    QPointF m_quadControl;
    char m_last = 0;
    bool m_started = false;
};

} // namespace

std::optional<SVGPath::ParseError> SVGPath::append(QByteArrayView d, QPainterPath& path)
{
    return PathParser(d, path).run();
}
