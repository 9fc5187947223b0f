#pragma once

#include "PanelPlacement.h"

#include <QObject>

// Where the panel's arrow is drawn: its tip's distance from the panel's left
// edge, and whether it points up (panel under a top tray) or down (panel
// above a bottom tray). A negative arrowX draws no arrow.
class PopoverState : public QObject {
    Q_OBJECT
    Q_PROPERTY(double arrowX READ arrowX WRITE setArrowX NOTIFY arrowXChanged)
    Q_PROPERTY(bool hasArrow READ hasArrow NOTIFY arrowXChanged)
    Q_PROPERTY(bool arrowDown READ arrowDown WRITE setArrowDown NOTIFY arrowDownChanged)
    Q_PROPERTY(int bodyHeight READ bodyHeight WRITE setBodyHeight NOTIFY bodyHeightChanged)

public:
    using QObject::QObject;

    double arrowX() const { return m_arrowX; }
    bool hasArrow() const { return m_arrowX >= 0; }
    bool arrowDown() const { return m_arrowDown; }
    // Shorter than the full body on a short screen (fewer grid rows).
    int bodyHeight() const { return m_bodyHeight; }

    void setArrowX(double x)
    {
        if (x == m_arrowX)
            return;
        m_arrowX = x;
        emit arrowXChanged();
    }
    void setArrowDown(bool down)
    {
        if (down == m_arrowDown)
            return;
        m_arrowDown = down;
        emit arrowDownChanged();
    }

    void setBodyHeight(int height)
    {
        if (height == m_bodyHeight)
            return;
        m_bodyHeight = height;
        emit bodyHeightChanged();
    }

signals:
    void arrowXChanged();
    void arrowDownChanged();
    void bodyHeightChanged();

private:
    double m_arrowX = -1;
    bool m_arrowDown = false;
    int m_bodyHeight = PanelPlacement::bodyHeight;
};
