// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "PenWriter.h"

#include "NumberedPenFile.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr std::size_t growingAtOnce = 100;
constexpr int aheadAtMost = 2000;
constexpr int shortestPause = 20; // milliseconds
constexpr int longestPauseMeant = 200;

} // namespace

PenWriter::~PenWriter()
{
    requestInterruption();
    wait();
}

void PenWriter::run()
{
    m_clock.start();
    while ((m_begun < m_files || !m_growing.empty()) && !isInterruptionRequested()) {
        while (mayBegin())
            begin(m_begun++);
        growDueFiles();
        msleep(1);
    }
}

bool PenWriter::mayBegin() const
{
    return m_begun < m_files && m_growing.size() < growingAtOnce &&
           m_begun - m_tally.wholeFiles() < aheadAtMost;
}

void PenWriter::begin(int number)
{
    const QByteArray content = NumberedPenFile::contentOf(number);
    GrowingFile file = {
        QStringLiteral("%1/%2.dat").arg(m_directory).arg(number, 7, 10, QLatin1Char('0')),
        number % 2 == 0 ? QList<QByteArray>{content} : piecesOf(content), 0, m_clock.elapsed()};
    writePiece(file);
    if (!file.rest.isEmpty())
        m_growing.push_back(file);
    m_mostGrowing = std::max(m_mostGrowing, m_growing.size());
}

// Cut anywhere, in the middle of a number too.
QList<QByteArray> PenWriter::piecesOf(const QByteArray& content)
{
    const int first = between(1, content.size() - 2);
    if (between(0, 1) == 0)
        return {content.left(first), content.mid(first)};
    const int second = between(first + 1, content.size() - 1);
    return {content.left(first), content.mid(first, second - first), content.mid(second)};
}

void PenWriter::writePiece(GrowingFile& file)
{
    const qint64 before = m_clock.elapsed();
    const QByteArray piece = file.rest.takeFirst();
    QFile output(file.path);
    const bool written =
        output.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) &&
        output.write(piece) == piece.size();
    m_failed += written ? 0 : 1;
    m_longestPause = std::max(m_longestPause, m_clock.elapsed() - file.touched);
    file.touched = before;
    file.due = m_clock.elapsed() + between(shortestPause, longestPauseMeant);
}

void PenWriter::growDueFiles()
{
    for (GrowingFile& file : m_growing) {
        if (m_clock.elapsed() >= file.due)
            writePiece(file);
    }
    m_growing.erase(std::remove_if(m_growing.begin(), m_growing.end(),
                                   [](const GrowingFile& file) { return file.rest.isEmpty(); }),
                    m_growing.end());
}

int PenWriter::between(int least, int most)
{
    return std::uniform_int_distribution<int>(least, most)(m_random);
}

QString PenWriter::summary() const
{
    return QStringLiteral("written %1, half of them slowly, up to %2 at a time; longest pause in a "
                          "file %3 ms; failed writes %4\n")
        .arg(m_begun)
        .arg(m_mostGrowing)
        .arg(m_longestPause)
        .arg(m_failed);
}
