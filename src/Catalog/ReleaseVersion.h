#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// An icon set release number: two to four dot-separated whole numbers of at
// most six digits, optionally followed by a pre-release suffix ("3.10.0",
// "3.0.0-beta.2"). Anything else ("latest", "9...", "99999999") is not a
// release and never becomes the catalogue's version through an update.
class ReleaseVersion {
public:
    static std::optional<ReleaseVersion> parse(QStringView text);

    // Numbers compare numerically, part by part, a missing part as 0; a
    // pre-release comes before its release; suffixes compare with digit runs
    // as numbers. Negative, zero or positive.
    int compare(const ReleaseVersion& other) const;

private:
    QList<int> m_numbers;
    QString m_suffix;
};

// Orders catalogue versions for choosing between files: a release number
// above any text that is not one; two such texts are equal.
int compareCatalogueVersions(QStringView a, QStringView b);
