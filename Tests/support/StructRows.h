// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#include <iterator>

/// Adds the rows of a table of structs with a "name" to a test; currentRow() returns the one that
/// it runs with.
template <typename Table>
void addRows(const Table& table)
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const auto& row : table)
        QTest::newRow(row.name) << index++;
}

template <typename Table>
const auto& currentRow(const Table& table)
{
    QFETCH(int, index);
    return *std::next(std::begin(table), index);
}
