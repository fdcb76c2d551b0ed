// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"

#include "DigitizerGeneric/Digitizer/DescribedSetting.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "DigitizerGeneric/Digitizer/TemplateLetters.h"

#include <algorithm>
#include <optional>

namespace MavSystem {

namespace {

// Returns an empty text, or what is broken.
QString parseTemplate(const QString& text, int length, std::vector<ReportFormatValues>& roles)
{
    if (length < 0 || text.size() < length)
        return QStringLiteral("\"length\" of the report template is %1, but the number of its "
                              "characters is %2")
            .arg(length)
            .arg(text.size());
    roles.reserve(size_t(length));
    for (int position = 0; position < length; ++position) {
        const std::optional<ReportFormatValues> role = TemplateLetters::roleOf(text.at(position));
        if (!role)
            return QStringLiteral(
                       "character %1 of the report template is \"%2\", but must be one of %3")
                .arg(position + 1)
                .arg(text.at(position))
                .arg(TemplateLetters::all());
        roles.push_back(*role);
    }
    return {};
}

QString attribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name));
}

PortSettings parsePortSettings(const QDomElement& serial)
{
    PortSettings settings;
    for (const DescribedSetting& setting : describedSettings())
        setting.read(settings, serial.attribute(setting.attribute));
    return settings;
}

ButtonValue parseButtonCode(const QString& text)
{
    ButtonValue button;
    const int characters = std::min(text.size(), int(button.m_code.size()));
    // Each character by itself: converting the whole text would turn what has no 8-bit code into
    // a question mark, and a tablet may send that.
    for (int index = 0; index < characters; ++index)
        button.m_code[size_t(index)] = text.at(index).toLatin1();
    return button;
}

std::vector<ButtonValue> parseButtons(const QDomElement& buttons, int count)
{
    std::vector<ButtonValue> codes(size_t(std::max(count, 0)), ButtonValue{{'0', ' ', ' '}});
    QDomElement button = buttons.firstChildElement(QStringLiteral("button"));
    for (ButtonValue& code : codes) {
        if (button.isNull())
            break;
        code = parseButtonCode(button.text());
        button = button.nextSiblingElement(QStringLiteral("button"));
    }
    return codes;
}

} // namespace

ParsedDescription parseDescription(const QDomElement& root)
{
    DigitizerArgument description;
    description.m_portSettings =
        parsePortSettings(root.firstChildElement(QStringLiteral("ioPort"))
                              .firstChildElement(QStringLiteral("serial")));

    const QDomElement resolution = root.firstChildElement(QStringLiteral("resolution"));
    description.m_resolution = resolution.text().toShort();
    description.m_resolutionUnit = Resolution::unitOf(attribute(resolution, "unit"));

    const QDomElement reportFormat = root.firstChildElement(QStringLiteral("reportFormat"));
    const int reportLength = attribute(reportFormat, "length").toInt();
    const QString broken =
        parseTemplate(reportFormat.text(), reportLength, description.m_reportFormat);
    if (!broken.isEmpty())
        return {DigitizerArgument(), broken};
    description.m_reportLength = std::uint64_t(reportLength);

    const QDomElement buttons = root.firstChildElement(QStringLiteral("buttons"));
    const QString count = attribute(buttons, "count");
    if (count.toInt() > maximumButtonCount)
        return {DigitizerArgument(), QStringLiteral("it has %1 buttons, but at most %2 are allowed")
                                         .arg(count)
                                         .arg(maximumButtonCount)};
    description.m_fourButtons = count == QLatin1String("4");
    description.m_buttonCodeLength =
        std::uint64_t(std::int64_t(attribute(buttons, "length").toInt()));
    description.m_buttons = parseButtons(buttons, count.toInt());
    return {description, QString()};
}

QString beepCommandOf(const QDomElement& root)
{
    const QString characterTag = QStringLiteral("character");
    QString command;
    QDomElement character =
        root.firstChildElement(QStringLiteral("beepString")).firstChildElement(characterTag);
    for (; !character.isNull(); character = character.nextSiblingElement(characterTag))
        command += QChar(ushort(character.text().toInt()));
    return command;
}

} // namespace MavSystem
