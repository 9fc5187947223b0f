#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

// Laid over a horizontal Flickable (the chips row): turns vertical wheel
// movement into horizontal scrolling, pages the view by part of its width
// and tells whether there is more to either side. Clicks pass through.
class WheelToHorizontal : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(bool canLeft READ canLeft NOTIFY positionChanged)
    Q_PROPERTY(bool canRight READ canRight NOTIFY positionChanged)

public:
    // One page is this share of the visible width.
    static constexpr double pageShare = 0.7;

    explicit WheelToHorizontal(QQuickItem* parent = nullptr);

    QQuickItem* target() const { return m_target; }
    void setTarget(QQuickItem* target);
    bool canLeft() const;
    bool canRight() const;

    // Scrolls by one page: direction < 0 to the left, > 0 to the right.
    Q_INVOKABLE void page(int direction);
    // Scrolls by `dx` pixels, held within the content.
    Q_INVOKABLE void scrollBy(double dx);

signals:
    void targetChanged();
    void positionChanged();

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    double number(const char* property) const;
    double minX() const;
    double maxX() const;

    QPointer<QQuickItem> m_target;
};
