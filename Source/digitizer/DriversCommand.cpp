// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/DriversCommand.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DescriptionTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

QStringList buttonCodes(const DescribedDriver& driver)
{
    QStringList codes;
    for (const ButtonValue& button : driver.description.m_buttons)
        codes << buttonCodeText(driver.description, button);
    return codes;
}

QString entryOf(const DescribedDriver& driver)
{
    const QString support =
        driver.support.isEmpty() ? QStringLiteral("not stated") : driver.support;
    const QString layout = driver.takesReports()
                               ? layoutText(driver.description.m_reportFormat)
                               : QStringLiteral("not usable ('digitizer lint FILE' says why)");
    return QStringLiteral("%1\n"
                          "  file        %2\n"
                          "  settings    %3\n"
                          "  resolution  %4\n"
                          "  layout      %5\n"
                          "  buttons     %6\n"
                          "  support     %7\n")
        .arg(driver.name, driver.file, lineSettingsText(driver.description.m_portSettings),
             driver.resolutionText(), layout, buttonCodes(driver).join(QLatin1Char(' ')), support);
}

QString objectOf(const DescribedDriver& driver)
{
    const QJsonObject object = {
        {QStringLiteral("name"), driver.name},
        {QStringLiteral("file"), driver.file},
        {QStringLiteral("settings"), lineSettingsText(driver.description.m_portSettings)},
        {QStringLiteral("resolution"), driver.resolutionText()},
        {QStringLiteral("layout"), layoutText(driver.description.m_reportFormat)},
        {QStringLiteral("buttons"), QJsonArray::fromStringList(buttonCodes(driver))},
        {QStringLiteral("support"), driver.support},
        {QStringLiteral("usable"), driver.takesReports()}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) +
           QLatin1Char('\n');
}

int run(const QCommandLineParser& parser)
{
    const bool json = wantsJson(parser);
    QStringList entries;
    for (const DescribedDriver& driver : DescriptionFolder::drivers())
        entries << (json ? objectOf(driver) : entryOf(driver));
    if (entries.isEmpty())
        throw CommandError(
            QStringLiteral("no description is installed; 'digitizer install FILE' adds one"));
    return printOutput(entries.join(QLatin1String(json ? "" : "\n"))) ? ExitSuccess : ExitFailure;
}

} // namespace

Command driversCommand()
{
    Command command;
    command.name = QStringLiteral("drivers");
    command.summary = QStringLiteral("list the drivers that are installed");
    command.description = QStringList{
        QStringLiteral("Lists the installed drivers: the name to give to --driver, the description "
                       "file, the serial settings, the resolution, the layout of a report, the "
                       "button codes and the support level. \"verified\" means that the "
                       "description has been used with the tablet, \"documented\" that it follows "
                       "published sources, and \"untested\" that it is based on an assumption.")};
    command.options = {listFormatOption()};
    command.examples = {{QStringLiteral("digitizer drivers --format json"),
                         QStringLiteral("Print the list for another program.")}};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
