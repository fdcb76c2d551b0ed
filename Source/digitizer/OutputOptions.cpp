// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/OutputOptions.h"

#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Pieces/PieceDrawing.h"

#include <QFileInfo>

namespace ReferenceHost {

QCommandLineOption formatOption()
{
    return {QStringLiteral("format"),
            QStringLiteral("Print text (default), csv, or json with one object per line. Numbers "
                           "are exact in csv and json, and rounded to 4 decimal places in text."),
            QStringLiteral("FORMAT")};
}

ReportWriter::Format formatValue(const QCommandLineParser& parser)
{
    const QStringList formats = ReportWriter::formatNames();
    return ReportWriter::Format(
        formats.indexOf(choiceValue(parser, QStringLiteral("format"), formats)));
}

QCommandLineOption pictureOption()
{
    return {
        QStringLiteral("picture"),
        QStringLiteral("Draw the pieces when the command ends: as SVG at true size or as PNG, "
                       "depending on the extension of FILE. A piece that was not ended is dashed."),
        QStringLiteral("FILE")};
}

QString writablePicture(const QCommandLineParser& parser)
{
    if (!parser.isSet(pictureOption()))
        return {};
    const QString path = parser.value(pictureOption());
    if (!PieceDrawing::canSave(path))
        throw CommandError(
            QStringLiteral("--picture is '%1', but must end in .svg or .png").arg(path), ExitUsage);
    const QFileInfo folder(QFileInfo(path).absolutePath());
    if (!folder.isDir())
        throw CommandError(
            QStringLiteral("--picture: there is no folder %1").arg(folder.filePath()));
    if (!folder.isWritable())
        throw CommandError(
            QStringLiteral("--picture: you may not write to the folder %1").arg(folder.filePath()));
    return path;
}

void refuseExisting(const QCommandLineParser& parser, const QString& option)
{
    const QString path = parser.value(option);
    if (parser.isSet(option) && QFileInfo::exists(path))
        throw CommandError(
            QStringLiteral("--%1: %2 already exists and is not overwritten; choose another name")
                .arg(option, path));
}

int savePicture(const QVector<Piece>& pieces, const QString& path)
{
    if (path.isEmpty())
        return ExitSuccess;
    const QString problem =
        pieces.isEmpty() ? QStringLiteral("nothing was traced, so %1 was not written").arg(path)
                         : PieceDrawing(pieces).save(path);
    if (problem.isEmpty())
        return ExitSuccess;
    printError(problem);
    return ExitFailure;
}

} // namespace ReferenceHost
