#pragma once

#include <QStringView>

// Compares strings with digit runs taken as numbers, so "3.10.0" > "3.9.1".
// Negative, zero or positive like strcmp.
int numericCompare(QStringView a, QStringView b);
