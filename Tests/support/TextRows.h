// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QVector>
#include <QtTest>

/// A row of a text file: its name and its fields.
struct TextRow
{
    QByteArray name;
    QByteArrayList fields;

    QString text(int index) const { return QString::fromUtf8(fields.at(index)); }
};

Q_DECLARE_METATYPE(TextRow)

/// Replaces \r, \n, \\ and \xHH by the bytes that they stand for.
inline QByteArray unescaped(QByteArray text)
{
    for (int at = 0; (at = text.indexOf('\\', at)) >= 0; ++at) {
        const char kind = text.at(at + 1);
        if (kind == 'x')
            text.replace(at, 4, QByteArray::fromHex(text.mid(at + 2, 2)));
        else
            text.replace(at, 2, kind == 'r' ? "\r" : kind == 'n' ? "\n" : "\\");
    }
    return text;
}

/// Replaces "{TEXT*COUNT}" by so many repetitions of the text, in which "#" is the number of each.
inline QByteArray expanded(QByteArray text)
{
    for (int begin = 0; (begin = text.indexOf('{', begin)) >= 0;) {
        const int end = text.indexOf('}', begin);
        const QByteArray inside = text.mid(begin + 1, end - begin - 1);
        const int star = inside.lastIndexOf('*');
        const QByteArray part = inside.left(star);
        const int count = inside.mid(star + 1).toInt();
        QByteArray repetitions;
        repetitions.reserve(count * part.size());
        for (int number = 0; number < count; ++number)
            repetitions += part.contains('#')
                               ? QByteArray(part).replace("#", QByteArray::number(number))
                               : part;
        text.replace(begin, end - begin + 1, repetitions);
        begin += repetitions.size();
    }
    return text;
}

/// The content of the file, none if it cannot be read.
inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The rows of Tests/Rows/\a file. A row is a line with its name and \a count fields, separated by
/// " ; ", without the blanks around them. Empty lines and lines that begin with "#" are passed
/// over, and fields are unescaped. A file that is not like that ends the program.
inline QVector<TextRow> textRows(const char* file, int count)
{
    static const QRegularExpression separator(QStringLiteral(" ;(?= )"));
    QFile rows(QStringLiteral(SOURCE_DIRECTORY "/Tests/Rows/") + QLatin1String(file));
    if (!rows.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(rows.fileName()));
    QVector<TextRow> read;
    for (const QByteArray& line : rows.readAll().split('\n')) {
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        QByteArrayList fields;
        for (const QString& field : QString::fromUtf8(line + ' ').split(separator))
            fields << unescaped(field.trimmed().toUtf8());
        const QByteArray name = fields.takeFirst();
        if (fields.size() != count)
            qFatal("%s: not %d fields behind the name: %s", file, count, line.constData());
        read << TextRow{name, fields};
    }
    return read;
}

/// Adds these rows to the column "row" of a test.
inline void addTextRows(const char* file, int count)
{
    QTest::addColumn<TextRow>("row");
    for (const TextRow& row : textRows(file, count))
        QTest::newRow(row.name) << row;
}
