import QtQuick
import Pictray.Kit

// A raised surface with a hairline border.
Rectangle {
    color: Theme.card
    radius: Theme.radius
    border.color: Theme.outline
    border.width: 1
}
