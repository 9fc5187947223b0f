#include "PanelWindow.h"

#include "PanelPlacement.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <cmath>

namespace {

// The body card's corner radius in the views.
constexpr double cornerRadius = 12;

// What a window's maximum size is when nothing limits it.
constexpr int unlimitedSide = (1 << 24) - 1;

int cornerInset(int row, int height)
{
    const int fromEdge = std::min(row, height - 1 - row);
    if (fromEdge >= cornerRadius)
        return 0;
    const double dy = cornerRadius - (fromEdge + 0.5);
    return static_cast<int>(
        std::floor(cornerRadius - std::sqrt(cornerRadius * cornerRadius - dy * dy)));
}

} // namespace

PanelWindow::PanelWindow(const QUrl& root, const QVariantMap& properties, const EngineSetup& setup)
    // The engine is a child so it outlives the items, which die with the
    // content item in the window's destructor.
    : m_engine(new QQmlEngine(this))
{
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("Pictray"));
    QSurfaceFormat surface = format();
    surface.setAlphaBufferSize(8);
    setFormat(surface);
    setColor(Qt::transparent);

    m_engine->addImportPath(QStringLiteral("qrc:/"));
    if (setup)
        setup(*m_engine);
    QQmlComponent component(m_engine, root, QQmlComponent::PreferSynchronous);
    // Qt 6.4 crashes when asked to create from a component that failed.
    QObject* object =
        component.isReady() ? component.createWithInitialProperties(properties) : nullptr;
    m_root = qobject_cast<QQuickItem*>(object);
    if (!m_root) {
        delete object;
        qWarning("Pictray: the picker panel's QML did not load: %s",
                 qUtf8Printable(component.errorString()));
        return;
    }
    m_root->setParentItem(contentItem());
}

PanelWindow::~PanelWindow()
{
    delete m_root;
}

QQuickItem* PanelWindow::rootItem() const
{
    return m_root;
}

bool PanelWindow::popupHasKeys() const
{
    for (const QQuickItem* item = activeFocusItem(); item; item = item->parentItem()) {
        if (item->property("keepsKeys").toBool())
            return true;
    }
    return false;
}

bool PanelWindow::controlHasKeys() const
{
    return !keysGoNowhere() && activeFocusItem()->objectName() != u"searchField";
}

bool PanelWindow::editingText() const
{
    const QQuickItem* item = activeFocusItem();
    return item && item->objectName() == u"hexField";
}

bool PanelWindow::keysGoNowhere() const
{
    const QQuickItem* item = activeFocusItem();
    return !item || item == m_root || item == contentItem();
}

bool PanelWindow::sendToSearchField(const QKeyEvent& event)
{
    QQuickItem* field =
        m_root ? m_root->findChild<QQuickItem*>(QStringLiteral("searchField")) : nullptr;
    if (!field)
        return false;
    QKeyEvent copy(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                   event.nativeVirtualKey(), event.nativeModifiers(), event.text(),
                   event.isAutoRepeat(), event.count());
    QCoreApplication::sendEvent(field, &copy);
    return true;
}

void PanelWindow::drawUnseen()
{
    if (isVisible())
        return;
    // One pixel rather than none: a window without size has no image to
    // draw into, and every item would warn of it.
    setMinimumSize(QSize(1, 1));
    setMaximumSize(QSize(unlimitedSide, unlimitedSide));
    resize(1, 1);
    (void)grabWindow();
}

void PanelWindow::shape(std::optional<double> arrowX, bool arrowDown)
{
    setMask(shapeRegion(size(), arrowX, arrowDown));
}

QRegion PanelWindow::shapeRegion(QSize size, std::optional<double> arrowX, bool arrowDown)
{
    using namespace PanelPlacement;
    const int arrowRows = arrowX ? arrowHeight : 0;
    const int bodyTop = arrowX && !arrowDown ? arrowHeight : 0;
    const int body = size.height() - arrowRows;

    // Row by row, so the round corners are exact to the pixel.
    QRegion region;
    for (int row = 0; row < body; ++row) {
        const int inset = cornerInset(row, body);
        region += QRect(inset, bodyTop + row, size.width() - 2 * inset, 1);
    }
    for (int row = 0; row < arrowRows; ++row) {
        // Rows counted from the tip; the triangle is twice as wide as high.
        const double halfWidth = (row + 0.5) * arrowWidth / 2.0 / arrowHeight;
        const int y = arrowDown ? size.height() - 1 - row : row;
        const auto left = static_cast<int>(std::lround(*arrowX - halfWidth));
        const auto right = static_cast<int>(std::lround(*arrowX + halfWidth));
        region += QRect(left, y, right - left, 1);
    }
    return region;
}
