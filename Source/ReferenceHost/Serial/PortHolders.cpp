// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/PortHolders.h"

#include <QFile>
#include <QFileInfo>

namespace ReferenceHost {

namespace {

bool hasOpen(const QDir& openFiles, const QString& port)
{
    const QStringList descriptors = openFiles.entryList(QDir::Files | QDir::System | QDir::Hidden);
    for (const QString& descriptor : descriptors) {
        if (QFile::symLinkTarget(openFiles.filePath(descriptor)) == port)
            return true;
    }
    return false;
}

QString programOf(const QDir& process)
{
    QFile name(process.filePath(QStringLiteral("comm")));
    const bool isKnown = name.open(QIODevice::ReadOnly);
    return QStringLiteral("%1 (%2)").arg(isKnown ? QString::fromLocal8Bit(name.readAll()).trimmed()
                                                 : QStringLiteral("unknown"),
                                         process.dirName());
}

} // namespace

PortHolders portHolders(const QString& port, const QDir& processes)
{
    // The name of a port may be a link; the kernel shows the device itself.
    const QString canonical = QFileInfo(port).canonicalFilePath();
    const QString device = canonical.isEmpty() ? port : canonical;
    PortHolders holders;
    const QStringList folders = processes.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    int hidden = 0;
    for (const QString& folder : folders) {
        bool isProcess = false;
        folder.toLongLong(&isProcess);
        if (!isProcess)
            continue;
        const QDir process(processes.filePath(folder));
        const QDir openFiles(process.filePath(QStringLiteral("fd")));
        // A process may end meanwhile.
        if (openFiles.exists() && !openFiles.isReadable())
            ++hidden;
        else if (hasOpen(openFiles, device))
            holders.programs << programOf(process);
    }
    holders.complete = !folders.isEmpty() && hidden == 0;
    return holders;
}

QString holdersText(const PortHolders& holders)
{
    const QString known = holders.programs.join(QStringLiteral(", "));
    if (holders.complete)
        return known.isEmpty() ? QStringLiteral("nobody") : known;
    return known.isEmpty()
               ? QStringLiteral("unknown; only root can see the programs of other users")
               : known + QStringLiteral(", and perhaps programs of other users");
}

} // namespace ReferenceHost
