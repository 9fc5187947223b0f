#include "PickerController.h"

#include "Base/HexColor.h"
#include "Base/KeyboardLayout.h"
#include "Export/CopyService.h"
#include "Export/RenderOptions.h"
#include "FormatMenu.h"
#include "PanelKeys.h"
#include "PanelPlacement.h"
#include "PanelWindow.h"
#include "Picker/PickerModel.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"

#include <QApplication>
#include <QCursor>
#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QTimer>
#include <cmath>

namespace {

// The drag image is at least this large, so a small icon is still seen.
constexpr double minDragPointSize = 32;

} // namespace

PickerController::PickerController(PickerModel& model, Preferences& prefs, UserLibrary& user,
                                   CopyService& copyService, Paster& paster, QObject* parent)
    : QObject(parent), m_model(model), m_prefs(prefs), m_user(user), m_copyService(copyService),
      m_paster(paster)
{
    connect(&m_model, &PickerModel::copied, this, &PickerController::didCopy);
    connect(&m_model, &PickerModel::nothingToCopy, this, &PickerController::beep);
    // An open panel takes a new appearance at once, like the other windows.
    m_appearance.setMode(m_prefs.appearance());
    connect(&m_prefs, &Preferences::appearanceChanged, this,
            [this] { m_appearance.setMode(m_prefs.appearance()); });
    m_confirmKeyboardLoss.setSingleShot(true);
    connect(&m_confirmKeyboardLoss, &QTimer::timeout, this,
            &PickerController::closeForLostKeyboard);
}

PickerController::~PickerController()
{
    delete m_menu;
}

void PickerController::setTrayIconGeometry(std::function<QRect()> provider)
{
    m_trayIcon = std::move(provider);
}

void PickerController::show(std::optional<PickerTab> tab)
{
    if (!m_panel)
        makePanel();
    if (tab)
        m_model.setTab(*tab);
    else if (!m_prefs.showCategoryBar())
        m_model.setTab(PickerTab::all()); // with the bar hidden there is no other way back
    m_model.prepareForShow();
    place();
    if (!m_panel->isVisible()) {
        m_paster.rememberTarget(); // before the panel takes the keyboard
        m_shownAt = m_clock();
    }
    m_panel->show();
    m_panel->raise();
    m_panel->requestActivate();
    if (!m_monitoring) {
        m_panel->installEventFilter(this);
        m_monitoring = true;
    }
}

void PickerController::hide()
{
    if (!m_panel)
        return;
    if (m_monitoring) {
        m_panel->removeEventFilter(this);
        m_monitoring = false;
    }
    m_confirmKeyboardLoss.stop();
    const bool wasVisible = m_panel->isVisible();
    m_panel->hide();
    if (wasVisible) {
        // A frame drawn unseen lets the window-sized image go: drawn once
        // the event loop is back, outside the key, click or copy handler
        // that closed the panel.
        QTimer::singleShot(0, m_panel.get(), [panel = m_panel.get()] { panel->drawUnseen(); });
        emit hidden();
    }
}

void PickerController::toggle()
{
    if (isVisible()) {
        hide();
        return;
    }
    if (m_lastDeactivationHide && m_clock() - *m_lastDeactivationHide < toggleAfterDeactivation)
        return;
    show();
}

bool PickerController::isVisible() const
{
    return m_panel && m_panel->isVisible();
}

QQuickWindow* PickerController::panel() const
{
    return m_panel.get();
}

PopoverState& PickerController::popoverState()
{
    return m_popover;
}

void PickerController::preparePanel()
{
    if (!m_panel)
        makePanel();
    // The native window too, and one frame drawn unseen: the grid's cells and
    // their glyphs are then made, so the first opening only shows them.
    m_panel->create();
    m_panel->drawUnseen();
}

void PickerController::makePanel()
{
    const QVariantMap properties{
        {QStringLiteral("model"), QVariant::fromValue(&m_model)},
        {QStringLiteral("popover"), QVariant::fromValue(&m_popover)},
        {QStringLiteral("controller"), QVariant::fromValue(this)},
        {QStringLiteral("appearance"), QVariant::fromValue(&m_appearance)},
    };
    m_panel = std::make_unique<PanelWindow>(m_rootUrl, properties, m_engineSetup);
    connect(m_panel.get(), &QWindow::activeChanged, this, [this] {
        if (!m_panel->isActive())
            panelDeactivated();
    });
}

void PickerController::place()
{
    const QPoint cursor = QCursor::pos();
    const PanelPlacement::Placement placement =
        PanelPlacement::place(m_prefs.pickerPosition(), PanelPlacement::availableAreaAt(cursor),
                              cursor, m_trayIcon ? m_trayIcon() : QRect(), m_session);
    m_popover.setArrowX(placement.arrowX.value_or(-1));
    m_popover.setArrowDown(placement.arrowDown);
    m_popover.setBodyHeight(placement.bodyHeight());
    if (!m_session.placesWindows) {
        // One fixed size makes tiling compositors float the panel.
        m_panel->setMinimumSize(placement.frame.size());
        m_panel->setMaximumSize(placement.frame.size());
    }
    m_panel->setGeometry(placement.frame);
    m_panel->shape(placement.arrowX, placement.arrowDown);
}

bool PickerController::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_panel.get() && event->type() == QEvent::KeyPress && !m_panel->popupHasKeys())
        return handle(*static_cast<QKeyEvent*>(event));
    return QObject::eventFilter(watched, event);
}

bool PickerController::handle(const QKeyEvent& event)
{
    using Kind = PanelKeyAction::Kind;
    const PanelKeyAction action =
        PanelKeys::actionFor(event, m_rendition, KeyboardLayout::current().get());
    // A text field of the inspector keeps its keys; Escape leaves it.
    if (m_panel && m_panel->editingText()) {
        if (action.kind != Kind::escape)
            return false;
        m_model.requestSearchFocus();
        return true;
    }
    const bool onControl = m_panel && m_panel->controlHasKeys();
    // Typing anywhere goes on in the search field; the event is delivered
    // after this, to the item that has the focus by then, or straight to the
    // field while no item has it yet.
    if (m_panel && PanelKeys::isTyping(event)) {
        if (onControl)
            m_model.requestSearchFocus();
        else if (m_panel->keysGoNowhere())
            return m_panel->sendToSearchField(event);
    }
    switch (action.kind) {
    case Kind::none:
        return false;
    case Kind::copy:
        m_model.copy(action.format); // the model's signals beep or apply the after-copy setting
        break;
    case Kind::showFormatMenu:
        showFormatMenu();
        break;
    case Kind::escape:
        escape();
        break;
    case Kind::move:
        if (onControl)
            return false; // a slider's or a segment row's own arrows
        m_model.move(action.step.x(), action.step.y());
        break;
    case Kind::toggleFavorite:
        toggleFavorite();
        break;
    case Kind::openSettings:
        openSettings();
        break;
    case Kind::focusSearch:
        m_model.requestSearchFocus();
        break;
    case Kind::close:
        hide();
        break;
    case Kind::quit:
        emit quitRequested();
        break;
    case Kind::toggleStyle:
        m_model.setStyle(m_model.style() == IconStyle::outline ? IconStyle::filled
                                                               : IconStyle::outline);
        break;
    case Kind::searchAll:
        if (!m_model.searchAllIcons())
            beep();
        break;
    }
    return true;
}

// The first Escape clears a search, the next one closes; a quick second
// Escape closes even when typing has started again in between.
void PickerController::escape()
{
    const auto now = m_clock();
    const bool justCleared = m_lastEscape && now - *m_lastEscape < escapeWindow;
    if (!justCleared && m_model.isSearching()) {
        m_model.setQuery({});
        m_lastEscape = now;
        return;
    }
    hide();
}

void PickerController::toggleFavorite()
{
    const Icon icon = m_model.current();
    if (icon.isNull()) {
        beep();
        return;
    }
    m_user.toggleFavorite(icon.id());
    m_model.announceChange();
}

void PickerController::panelDeactivated()
{
    const auto shownFor = m_clock() - m_shownAt;
    if (isVisible() && shownFor < keyboardGrace) {
        m_confirmKeyboardLoss.start(
            std::chrono::duration_cast<std::chrono::milliseconds>(keyboardGrace - shownFor));
        return;
    }
    closeForLostKeyboard();
}

void PickerController::closeForLostKeyboard()
{
    // The menu and a drag take the keyboard for a while; the panel stays.
    if (m_showingMenu || m_dragging || !isVisible() || m_panel->isActive())
        return;
    hide();
    m_lastDeactivationHide = m_clock();
}

void PickerController::didCopy()
{
    switch (m_prefs.afterCopy()) {
    case AfterCopy::close:
        hide();
        break;
    case AfterCopy::keepOpen:
        break;
    case AfterCopy::closeAndPaste:
        hide();
        m_copyService.pasteIntoFrontApp();
        break;
    }
}

void PickerController::showFormatMenu()
{
    if (!m_model.currentExport()) {
        beep();
        return;
    }
    if (m_panel && !m_menu)
        emit formatMenuRequested();
}

void PickerController::openFormatMenu(const QRectF& copyButton)
{
    if (!m_panel || m_menu || !m_model.currentExport())
        return;
    m_menu = new FormatMenu(m_prefs, *m_model.library(), m_model.format(), m_rendition);
    FormatMenu* menu = m_menu;
    connect(menu, &FormatMenu::formatChosen, this,
            [this](ExportFormat format) { m_model.copy(format); });
    connect(menu, &FormatMenu::customizeRequested, this, [this] {
        hide();
        emit settingsRequested(1);
    });
    connect(menu, &QMenu::aboutToHide, this, [this, menu] {
        // The chosen item is triggered after the menu hides: keep the menu
        // and the guard until that has run.
        menu->deleteLater();
        QTimer::singleShot(0, this, [this] {
            m_showingMenu = false;
            if (isVisible())
                m_panel->requestActivate();
        });
    });
    m_showingMenu = true;
    const QRect button(m_panel->mapToGlobal(copyButton.topLeft()).toPoint(),
                       copyButton.size().toSize());
    const QScreen* screen = m_panel->screen();
    const QRect area = screen ? screen->availableGeometry() : button;
    menu->popup(FormatMenu::popupPosition(button, menu->sizeHint(), area));
}

FormatMenu* PickerController::formatMenu() const
{
    return m_menu;
}

bool PickerController::setColorText(const QString& text)
{
    const std::optional<QString> color = HexColor::fromTyped(text);
    if (!color) {
        beep();
        return false;
    }
    m_model.setColor(*color);
    return true;
}

void PickerController::openSettings()
{
    hide();
    emit settingsRequested(0);
}

void PickerController::startDrag(const QString& iconName)
{
    const Icon icon = m_model.library()->icon(iconName);
    if (icon.isNull() || !m_panel)
        return;
    const IconExport item = m_model.exportOf(icon);

    IconRenderer::Options look = RenderOptions::forExport(
        item, static_cast<int>(std::ceil(m_panel->devicePixelRatio())), m_prefs);
    look.pointSize = std::max(look.pointSize, minDragPointSize);
    look.background.reset();
    look.padding = 0;
    if (!HexColor::parse(item.color))
        look.color = m_appearance.dark() ? Qt::white : Qt::black; // "currentColor"
    const QPixmap image = QPixmap::fromImage(IconRenderer::bitmap(*m_model.library(), icon, look));

    QPointer drag = new QDrag(m_panel.get());
    drag->setMimeData(m_copyService.itemProvider(item));
    if (!image.isNull()) {
        drag->setPixmap(image);
        drag->setHotSpot(QPoint(image.width(), image.height()) / 2 / image.devicePixelRatio());
    }
    m_dragging = true;
    drag->exec(Qt::CopyAction);
    m_dragging = false;
    if (drag)
        drag->deleteLater();
}

void PickerController::beep()
{
    if (m_beep)
        m_beep();
    else
        QApplication::beep();
}
