#pragma once

#include "Base/ExportFormat.h"
#include "Catalog/IconLibrary.h"
#include "ColorSwatch.h"
#include "Export/IconExport.h"
#include "PickerTab.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <optional>

class IconCopier;

// The state behind the picker panel: the search, the tab, the look icons are
// shown and copied in, the selection and the results, plus two counters by
// which the model asks the views to scroll to the selection or to focus the
// search field (each increment is one request; the values mean nothing).
// Owns no window; main thread only.
class PickerModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(PickerTab tab READ tab WRITE setTab NOTIFY tabChanged)
    Q_PROPERTY(IconStyle style READ style WRITE setStyle NOTIFY styleChanged)
    Q_PROPERTY(QString selectedID READ selectedID WRITE setSelectedID NOTIFY selectedIDChanged)
    Q_PROPERTY(QString color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(double stroke READ stroke WRITE setStroke NOTIFY strokeChanged)
    Q_PROPERTY(ExportFormat format READ format WRITE setFormat NOTIFY formatChanged)
    Q_PROPERTY(IconList results READ results NOTIFY resultsChanged)
    Q_PROPERTY(int scrollRequest READ scrollRequest NOTIFY scrollRequestChanged)
    Q_PROPERTY(int focusSearch READ focusSearch NOTIFY focusSearchChanged)
    Q_PROPERTY(IconLibrary* library READ library CONSTANT)
    Q_PROPERTY(UserLibrary* user READ user CONSTANT)
    Q_PROPERTY(Preferences* prefs READ prefs CONSTANT)

    Q_PROPERTY(QList<PickerTab> tabs READ tabs NOTIFY tabsChanged)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY isSearchingChanged)
    Q_PROPERTY(Icon current READ current NOTIFY currentChanged)
    Q_PROPERTY(
        std::optional<IconExport> currentExport READ currentExport NOTIFY currentExportChanged)
    Q_PROPERTY(bool strokeEnabled READ strokeEnabled NOTIFY strokeEnabledChanged)
    Q_PROPERTY(QString countLabel READ countLabel NOTIFY countLabelChanged)
    Q_PROPERTY(QString placeholder READ placeholder NOTIFY placeholderChanged)
    Q_PROPERTY(QList<ColorSwatch> swatches READ swatches NOTIFY swatchesChanged)

    // Plain-typed views of the above for the grid and inspector views.
    Q_PROPERTY(QStringList resultNames READ resultNames NOTIFY resultsChanged)
    Q_PROPERTY(int resultCount READ resultCount NOTIFY resultsChanged)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(QString currentName READ currentName NOTIFY currentChanged)

public:
    // The grid's column count: keyboard moves count with it and the grid
    // view reads it, so the two agree.
    static constexpr int columns = 8;
    // The icon the picker opens on when the results hold it.
    static QString startIconName() { return QStringLiteral("heart"); }

    // A null copier makes every copy fail.
    PickerModel(IconLibrary& library, UserLibrary& user, Preferences& prefs, IconCopier* copier,
                QObject* parent = nullptr);

    QString query() const { return m_query; }
    PickerTab tab() const { return m_tab; }
    IconStyle style() const { return m_style; }
    // Empty when nothing is selected.
    QString selectedID() const { return m_selectedID; }
    QString color() const { return m_color; }
    int size() const { return m_size; }
    double stroke() const { return m_stroke; }
    ExportFormat format() const { return m_format; }
    const IconList& results() const { return m_results; }
    int scrollRequest() const { return m_scrollRequest; }
    int focusSearch() const { return m_focusSearch; }
    IconLibrary* library() const { return &m_library; }
    UserLibrary* user() const { return &m_user; }
    Preferences* prefs() const { return &m_prefs; }

    void setQuery(const QString& query);
    void setTab(const PickerTab& tab);
    void setStyle(IconStyle style);
    void setSelectedID(const QString& name);
    void setColor(const QString& color);
    void setSize(int size);
    void setStroke(double stroke);
    void setFormat(ExportFormat format);

    QList<PickerTab> tabs() const { return m_tabs; }
    // The query holds more than white space.
    bool isSearching() const;
    // The selected icon, else the first result; null when there are no results.
    Icon current() const;
    std::optional<IconExport> currentExport() const;
    // Filled glyphs have no stroke.
    bool strokeEnabled() const;
    // "12 results" while searching, else empty.
    QString countLabel() const;
    QString placeholder() const;
    QList<ColorSwatch> swatches() const;

    QStringList resultNames() const;
    int resultCount() const { return static_cast<int>(m_results.size()); }
    // The selection's place in the results; -1 when it is not among them.
    int selectedIndex() const { return static_cast<int>(m_selectedIndex); }
    QString currentName() const;

    // An icon with the model's style, colour, size and stroke.
    IconExport exportOf(const Icon& icon) const;

    // Recomputes the results of the tab, style and query. The selection
    // stays when asked to and still listed; otherwise it moves to the first
    // result and the views are asked to scroll to it.
    void refresh(bool keepSelection);
    // Moves the selection by cells across and rows down in the grid.
    Q_INVOKABLE void move(int dx, int dy);
    // Each time the panel is about to appear.
    Q_INVOKABLE void prepareForShow();
    // Copies the current icon in `format`, or in the model's format; emits
    // copied() on success. Nothing to copy: nothingToCopy(), false.
    Q_INVOKABLE bool copy(std::optional<ExportFormat> format = std::nullopt);
    Q_INVOKABLE void requestSearchFocus();
    // A search that finds nothing in a narrower tab moves to the all tab
    // with its query; false when there is no such search.
    Q_INVOKABLE bool searchAllIcons();
    bool canSearchAllIcons() const;
    // Tells the views to redraw what they take from outside the model
    // (settings, favorites).
    Q_INVOKABLE void announceChange();

signals:
    void queryChanged();
    void tabChanged();
    void styleChanged();
    void selectedIDChanged();
    void colorChanged();
    void sizeChanged();
    void strokeChanged();
    void formatChanged();
    void resultsChanged();
    void scrollRequestChanged();
    void focusSearchChanged();
    void tabsChanged();
    void isSearchingChanged();
    void currentChanged();
    void currentExportChanged();
    void strokeEnabledChanged();
    void countLabelChanged();
    void placeholderChanged();
    void swatchesChanged();
    void selectedIndexChanged();

    // Something the views show may have changed without a property of its own.
    void changed();
    // A copy succeeded; the owner applies the after-copy behaviour.
    void copied();
    // A copy was asked for with no icon to copy (the owner beeps).
    void nothingToCopy();

private slots:
    void scheduleFormatCheck();

private:
    // The computed properties as last announced, to tell which changed.
    struct Derived {
        bool isSearching = false;
        Icon current;
        std::optional<IconExport> currentExport;
        bool strokeEnabled = true;
        QString countLabel;
        QString placeholder;
        QList<ColorSwatch> swatches;
        qsizetype selectedIndex = -1;
    };
    // Announces the computed properties that changed when the outermost
    // scope of a change ends, so that nested changes announce once.
    class ChangeScope;

    void subscribe();
    void catalogueReplaced();
    void checkFormat();
    IconList sourceIcons() const;
    IconList iconsNamed(const QStringList& names) const;
    qsizetype indexOf(const QString& name) const;
    // Sets the selection without announcing it; `at` is its place in the
    // results when the caller knows it. True when the name changed.
    bool assignSelection(const QString& name, qsizetype at = -1);
    void bumpScrollRequest();
    Derived derived() const;
    void announceDerived();

    IconLibrary& m_library;
    UserLibrary& m_user;
    Preferences& m_prefs;
    IconCopier* m_copier;

    QString m_query;
    PickerTab m_tab;
    IconStyle m_style;
    QString m_selectedID;
    QString m_color;
    int m_size;
    double m_stroke;
    ExportFormat m_format;
    IconList m_results;
    int m_scrollRequest = 0;
    int m_focusSearch = 0;

    QList<PickerTab> m_tabs;
    int m_outlineCount = 0;
    int m_filledCount = 0;
    qsizetype m_selectedIndex = -1;
    Derived m_announced;
    int m_changeDepth = 0;
    bool m_formatCheckQueued = false;
};
