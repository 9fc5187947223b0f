#pragma once

#include <QIcon>
#include <QStringList>
#include <QWidget>
#include <functional>

class IconLibrary;

// The recent icons inside the tray menu: a caption and one row of glyphs;
// a click copies the icon under the pointer and closes the menu.
class RecentRow : public QWidget {
    Q_OBJECT

public:
    static constexpr QSize fixedSize{228, 58};
    static constexpr int maxIcons = 7;

    using OnCopy = std::function<void(const QString& name)>;

    // Shows the first maxIcons names that the library knows.
    RecentRow(const QStringList& names, const IconLibrary& library, OnCopy onCopy,
              QWidget* parent = nullptr);

    QStringList icons() const { return m_names; }
    // The cell of the index-th icon, in the row's coordinates.
    QRect cellRect(int index) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    int cellAt(const QPoint& point) const;
    void setHovered(int index);

    QStringList m_names;
    QList<QIcon> m_glyphs;
    QColor m_glyphColor;
    OnCopy m_onCopy;
    int m_hovered = -1;
};
