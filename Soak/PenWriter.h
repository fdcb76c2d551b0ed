// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "PenTally.h"

#include <QElapsedTimer>
#include <QFile>
#include <QList>
#include <QThread>

#include <algorithm>
#include <random>
#include <vector>

/// Writes numbered pen files: every other one at once, and the rest in two or three pieces with
/// pauses of up to 200 ms, up to 100 files at a time. Runs in a separate thread, so that the host's
/// stalls do not prolong the pauses. Is at most 2000 files ahead of the host.
class PenWriter : public QThread
{
public:
    PenWriter(const QString& directory, int files, unsigned seed, const PenTally& tally)
        : m_directory(directory), m_files(files), m_random(seed), m_tally(tally)
    {}
    ~PenWriter() override { stop(); }

    void stop()
    {
        requestInterruption();
        wait();
    }

    // After the end.
    int begun() const { return m_begun; }
    int failedWrites() const { return m_failed; }
    int mostAtOnce() const { return int(m_mostGrowing); }
    int longestPause() const { return int(m_longestPause); } ///< milliseconds, in one file

protected:
    void run() override
    {
        m_clock.start();
        while ((m_begun < m_files || !m_growing.empty()) && !isInterruptionRequested()) {
            while (m_begun < m_files && m_growing.size() < 100 &&
                   m_begun - m_tally.wholeFiles() < 2000)
                begin(m_begun++);
            growDueFiles();
            msleep(1);
        }
    }

private:
    struct GrowingFile
    {
        QString path;
        QList<QByteArray> rest;
        qint64 written; ///< milliseconds on m_clock: before the last write
        qint64 due;     ///< and when the next one is
    };

    void begin(int number)
    {
        const QString name = QString::number(number).rightJustified(7, QLatin1Char('0'));
        const QByteArray content = PenTally::contentOf(number);
        GrowingFile file = {m_directory + QLatin1Char('/') + name + QLatin1String(".dat"),
                            number % 2 == 0 ? QList<QByteArray>{content} : piecesOf(content),
                            m_clock.elapsed(), 0};
        writePiece(file);
        if (!file.rest.isEmpty())
            m_growing.push_back(file);
        m_mostGrowing = std::max(m_mostGrowing, m_growing.size());
    }

    // Cuts anywhere, even within a number.
    QList<QByteArray> piecesOf(const QByteArray& content)
    {
        const int first = between(1, content.size() - 2);
        const int second = between(first + 1, content.size() - 1);
        return m_random() % 2 == 0
                   ? QList<QByteArray>{content.left(first), content.mid(first)}
                   : QList<QByteArray>{content.left(first), content.mid(first, second - first),
                                       content.mid(second)};
    }

    void writePiece(GrowingFile& file)
    {
        const qint64 now = m_clock.elapsed();
        const QByteArray piece = file.rest.takeFirst();
        QFile output(file.path);
        const bool written =
            output.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) &&
            output.write(piece) == piece.size();
        m_failed += written ? 0 : 1;
        m_longestPause = std::max(m_longestPause, m_clock.elapsed() - file.written);
        file.written = now;
        file.due = m_clock.elapsed() + between(20, 200);
    }

    void growDueFiles()
    {
        for (GrowingFile& file : m_growing) {
            if (m_clock.elapsed() >= file.due)
                writePiece(file);
        }
        m_growing.erase(std::remove_if(m_growing.begin(), m_growing.end(),
                                       [](const auto& file) { return file.rest.isEmpty(); }),
                        m_growing.end());
    }

    int between(int least, int most)
    {
        return least + int(m_random() % unsigned(most - least + 1));
    }

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
