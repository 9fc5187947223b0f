#pragma once

#include <QString>
#include <QStringView>

// A value made safe between the double quotes of an attribute in the markup
// the snippets are pasted into: SVG and HTML, JSX, Vue and Blade templates,
// which all read character references inside a quoted value. What a normal
// value holds (colours, class names, path data) comes out unchanged.
namespace AttributeText {

// Escapes the quote and the angle brackets, and an ampersand where it would
// start a reference such as &quot;, so the value can neither end the
// attribute nor turn into other text when read back.
QString escaped(QStringView value);

} // namespace AttributeText
