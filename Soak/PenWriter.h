// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "PenTally.h"

#include <QElapsedTimer>
#include <QList>
#include <QString>
#include <QThread>

#include <random>
#include <vector>

/// Writes numbered pen files, every other one at once and the rest in two or three pieces with
/// pauses between them, many at a time. In a thread of its own, so that the host's stalls do not
/// make the pauses longer.
class PenWriter : public QThread
{
public:
    /// \a tally tells what has come; the writer keeps 2000 files ahead at most.
    PenWriter(const QString& directory, int files, unsigned seed, const PenTally& tally)
        : m_directory(directory), m_files(files), m_random(seed), m_tally(tally)
    {}
    ~PenWriter() override;

    /// Returns the longest time between two pieces of a file, in milliseconds; after the end.
    qint64 longestPause() const { return m_longestPause; }

    /// Returns what was written, in a line; after the end.
    QString summary() const;

protected:
    void run() override;

private:
    struct GrowingFile
    {
        QString path;
        QList<QByteArray> rest;
        qint64 due;     ///< milliseconds on m_clock
        qint64 touched; ///< before the last write
    };

    bool mayBegin() const;
    void begin(int number);
    QList<QByteArray> piecesOf(const QByteArray& content);
    void writePiece(GrowingFile& file);
    void growDueFiles();
    int between(int least, int most);

    const QString m_directory;
    const int m_files;
    std::mt19937 m_random;
    const PenTally& m_tally;
    QElapsedTimer m_clock;
    std::vector<GrowingFile> m_growing;
    int m_begun = 0;
    int m_failed = 0;
    std::size_t m_mostGrowing = 0;
    qint64 m_longestPause = 0;
};
