#pragma once

#include "Base/ExportFormat.h"
#include "FormatListModel.h"
#include "Picker/PickerModel.h"
#include "Picker/PickerResultsModel.h"
#include "PickerTypes.h"

#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

// What the picker views show, in plain types, computed from the picker
// model: tab titles, the empty texts, the format choice, the favourite
// state. The views bind to it and write back through it, so that no rule
// lives in QML.
class PickerBindings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(PickerModel* model READ model WRITE setModel NOTIFY modelChanged)
    // The results as a list model with the role `iconName`, for the grid.
    Q_PROPERTY(PickerResultsModel* results READ results CONSTANT)

    Q_PROPERTY(bool filled READ filled WRITE setFilled NOTIFY styleChanged)
    Q_PROPERTY(QStringList tabTitles READ tabTitles NOTIFY tabsChanged)
    Q_PROPERTY(QStringList tabIcons READ tabIcons NOTIFY tabsChanged)
    Q_PROPERTY(int tabIndex READ tabIndex WRITE setTabIndex NOTIFY tabIndexChanged)

    Q_PROPERTY(bool showsEmptyResults READ showsEmptyResults NOTIFY searchTextsChanged)
    Q_PROPERTY(QString emptyGridText READ emptyGridText NOTIFY searchTextsChanged)
    Q_PROPERTY(QString emptyResultsTitle READ emptyResultsTitle NOTIFY searchTextsChanged)
    Q_PROPERTY(QString emptyResultsHint READ emptyResultsHint NOTIFY searchTextsChanged)
    // A tab that finds nothing offers the whole catalogue, with its keys.
    Q_PROPERTY(bool offersSearchAll READ offersSearchAll NOTIFY searchTextsChanged)
    Q_PROPERTY(QString searchAllKeys READ searchAllKeys CONSTANT)
    Q_PROPERTY(QStringList didYouMeanNames READ didYouMeanNames NOTIFY searchTextsChanged)
    Q_PROPERTY(QString nearMatchLine READ nearMatchLine NOTIFY searchTextsChanged)
    Q_PROPERTY(QStringList nearMatchNames READ nearMatchNames NOTIFY searchTextsChanged)
    Q_PROPERTY(QString iconCountLine READ iconCountLine NOTIFY searchTextsChanged)

    Q_PROPERTY(bool currentIsFavorite READ currentIsFavorite NOTIFY inspectorChanged)
    Q_PROPERTY(QString favoriteHelp READ favoriteHelp NOTIFY inspectorChanged)
    Q_PROPERTY(QString currentTagLine READ currentTagLine NOTIFY inspectorChanged)
    Q_PROPERTY(QString sizeLabel READ sizeLabel NOTIFY inspectorChanged)
    Q_PROPERTY(QString strokeLabel READ strokeLabel NOTIFY inspectorChanged)
    Q_PROPERTY(QStringList swatchValues READ swatchValues NOTIFY inspectorChanged)
    Q_PROPERTY(QStringList swatchLabels READ swatchLabels NOTIFY inspectorChanged)
    // The offered formats in two groups, as the Ctrl+Return menu shows them.
    Q_PROPERTY(FormatListModel* codeFormats READ codeFormats CONSTANT)
    Q_PROPERTY(FormatListModel* imageFormats READ imageFormats CONSTANT)
    // Into the code formats, then on into the image formats.
    Q_PROPERTY(int formatIndex READ formatIndex WRITE setFormatIndex NOTIFY formatsChanged)
    Q_PROPERTY(QString formatLabel READ formatLabel NOTIFY formatsChanged)
    Q_PROPERTY(QString copyButtonTitle READ copyButtonTitle NOTIFY formatsChanged)

    // The grid's columns, the ones the model's keyboard moves count with.
    Q_PROPERTY(int columns READ columns CONSTANT)
    Q_PROPERTY(QString favoriteKeys READ favoriteKeys CONSTANT)
    // Ctrl+Return, which opens the "Copy as" menu, and the format keys
    // Alt+1…6, as the footer names them.
    Q_PROPERTY(QString formatMenuKeys READ formatMenuKeys CONSTANT)
    Q_PROPERTY(QString formatKeys READ formatKeys CONSTANT)
    Q_PROPERTY(QUrl requestIconUrl READ requestIconUrl CONSTANT)
    // The drag hints, naming applications of this desktop.
    Q_PROPERTY(QString dragHint READ dragHint CONSTANT)
    Q_PROPERTY(QString dragAnyHint READ dragAnyHint CONSTANT)

public:
    explicit PickerBindings(QObject* parent = nullptr);

    PickerModel* model() const { return m_model; }
    void setModel(PickerModel* model);
    PickerResultsModel* results() { return &m_results; }

    bool filled() const;
    void setFilled(bool filled);
    QStringList tabTitles() const;
    QStringList tabIcons() const;
    int tabIndex() const;
    void setTabIndex(int index);

    bool showsEmptyResults() const;
    QString emptyGridText() const;
    QString emptyResultsTitle() const;
    QString emptyResultsHint() const;
    bool offersSearchAll() const { return m_model && m_model->canSearchAllIcons(); }
    static QString searchAllKeys();
    // What a typo most likely kept the search from finding, shown first.
    QStringList didYouMeanNames() const;
    QString nearMatchLine() const;
    QStringList nearMatchNames() const;
    QString iconCountLine() const;

    bool currentIsFavorite() const;
    QString favoriteHelp() const;
    QString currentTagLine() const;
    QString sizeLabel() const;
    QString strokeLabel() const;
    QStringList swatchValues() const;
    QStringList swatchLabels() const;
    FormatListModel* codeFormats() { return &m_codeFormats; }
    FormatListModel* imageFormats() { return &m_imageFormats; }
    int formatIndex() const;
    void setFormatIndex(int index);
    QString formatLabel() const;
    QString copyButtonTitle() const;

    static int columns() { return PickerModel::columns; }
    // The primary modifier with D, as the desktop writes shortcuts: "⌘D" on
    // macOS, "Ctrl+D" elsewhere.
    QString favoriteKeys() const { return favoriteKeys(QKeySequence::NativeText); }
    static QString favoriteKeys(QKeySequence::SequenceFormat format);
    static QString formatMenuKeys();
    static QString formatKeys();
    static QUrl requestIconUrl();
    static QString dragHint();
    static QString dragAnyHint();

    Q_INVOKABLE void toggleFavorite();
    // The tooltip of a grid cell.
    Q_INVOKABLE QString cellHelp(const QString& name) const;

signals:
    void modelChanged();
    void styleChanged();
    void tabsChanged();
    void tabIndexChanged();
    void searchTextsChanged();
    void inspectorChanged();
    void formatsChanged();

private:
    OfferedFormats offeredFormats() const;
    void refreshFormatLists();

    // Suggestions are searched once per query that found nothing.
    void computeNearMatches() const;

    QPointer<PickerModel> m_model;
    PickerResultsModel m_results;
    FormatListModel m_codeFormats;
    FormatListModel m_imageFormats;
    mutable QString m_nearQuery;
    mutable QStringList m_nearWords;
    mutable QStringList m_nearNames; // without the typo matches
    mutable QStringList m_typoNames;
};
