#include "NumericCompare.h"

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Compares the digit runs starting at i and j as numbers and moves past them.
int compareDigitRuns(QStringView a, qsizetype& i, QStringView b, qsizetype& j)
{
    while (i < a.size() && a[i] == u'0' && i + 1 < a.size() && isDigit(a[i + 1]))
        ++i;
    while (j < b.size() && b[j] == u'0' && j + 1 < b.size() && isDigit(b[j + 1]))
        ++j;
    qsizetype endA = i;
    qsizetype endB = j;
    while (endA < a.size() && isDigit(a[endA]))
        ++endA;
    while (endB < b.size() && isDigit(b[endB]))
        ++endB;
    // Without leading zeros the longer run is the larger number.
    int result = 0;
    if (endA - i != endB - j)
        result = endA - i < endB - j ? -1 : 1;
    else
        result = a.sliced(i, endA - i).compare(b.sliced(j, endB - j));
    i = endA;
    j = endB;
    return result;
}

} // namespace

int numericCompare(QStringView a, QStringView b)
{
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            if (const int result = compareDigitRuns(a, i, b, j); result != 0)
                return result < 0 ? -1 : 1;
            continue;
        }
        if (a[i] != b[j])
            return a[i] < b[j] ? -1 : 1;
        ++i;
        ++j;
    }
    if (i < a.size())
        return 1;
    return j < b.size() ? -1 : 0;
}
