// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "Fuzzing/FuzzTarget.h"

#include <QCoreApplication>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static QCoreApplication application(*count, *arguments);
    // The driver says at each beep what it sends.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz(QByteArray(reinterpret_cast<const char*>(bytes), int(size)));
    return 0;
}
