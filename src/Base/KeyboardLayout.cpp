#include "KeyboardLayout.h"

#include <QMutex>

namespace {
QMutex currentMutex;
std::shared_ptr<const KeyboardLayout>& currentLayout()
{
    static std::shared_ptr<const KeyboardLayout> layout;
    return layout;
}
} // namespace

std::shared_ptr<const KeyboardLayout> KeyboardLayout::current()
{
    const QMutexLocker lock(&currentMutex);
    return currentLayout();
}

void KeyboardLayout::setCurrent(std::shared_ptr<const KeyboardLayout> layout)
{
    const QMutexLocker lock(&currentMutex);
    currentLayout() = std::move(layout);
}
