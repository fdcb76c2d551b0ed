// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TextRows.h"

/// The pen once more, as the table Rows/pen-states.txt says it. Public, so that a test can put it
/// into any situation.
class PenModel
{
public:
    explicit PenModel(const QString& initial) : state(initial) {}

    void button(int number)
    {
        lastButton = number;
        if (!(state == "Terminate4" && m_positionGiven))
            write(at(ButtonWrites), 0, 0);
        if (number >= 1 && number <= 4)
            enter(at(AfterButtons).split(' ').at(number - 1));
    }

    void position(int x, int y)
    {
        positionButton = lastButton;
        m_positionGiven = true;
        if (state == "Line4" || state == "Curve4")
            curve = state == "Curve4";
        const QString next = at(internal ? AfterInternal : AfterPosition);
        write(at(internal ? InternalWrites : PositionWrites), x, y);
        if (next != "=")
            enter(next.section('/', curve ? -1 : 0, curve ? -1 : 0));
    }

    /// What ends the piece at the end of a file; when there is nothing, the file is done.
    std::string end()
    {
        if (positionButton == 4 && !(isExtended() && internal && m_ends < 2))
            return {};
        button(4);
        position(0, 0);
        ++m_ends;
        return std::exchange(written, {});
    }

    void startFile(const QString& initial)
    {
        state = initial;
        m_ends = 0;
    }

    bool isExtended() const { return at(Family) == "extended"; }
    QString code() const { return at(Code); }

    static const QMap<QString, TextRow>& states()
    {
        static const auto states = [] {
            QMap<QString, TextRow> byName;
            for (const TextRow& row : textRows("pen-states.txt", 8))
                byName.insert(QString::fromLatin1(row.name), row);
            return byName;
        }();
        return states;
    }

    QString state;
    bool internal = false;
    bool curve = false;
    int lastButton = 0;
    int positionButton = 0;
    std::string written;

private:
    enum Field {
        Code,
        Family,
        ButtonWrites,
        AfterButtons,
        PositionWrites,
        AfterPosition,
        InternalWrites,
        AfterInternal
    };

    QString at(Field field) const { return states()[state].text(field).remove('-'); }

    void enter(const QString& next)
    {
        state = next;
        m_positionGiven = false;
    }

    void write(const QString& codes, int x, int y)
    {
        for (const QChar code : codes)
            written += code.toLatin1() + std::to_string(x) + ' ' + std::to_string(y) + "\n\r";
    }

    bool m_positionGiven = false; // since the state was entered
    int m_ends = 0;
};
