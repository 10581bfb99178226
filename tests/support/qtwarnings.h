#ifndef TESTS_SUPPORT_QTWARNINGS_H
#define TESTS_SUPPORT_QTWARNINGS_H

#include <QStringList>

/// Collects what Qt warns of while it lives; one at a time.
class QtWarnings
{
public:
    QtWarnings();
    ~QtWarnings();
    Q_DISABLE_COPY(QtWarnings)

    /// The warnings so far, without those of the offscreen platform about itself.
    QStringList seen() const;
};

#endif
