import QtQuick
import Pictray.Kit

// A catalogue icon in the palette's text colour unless told otherwise.
IconGlyph {
    color: "currentColor"
    currentColor: Theme.text
    width: size
    height: size
}
