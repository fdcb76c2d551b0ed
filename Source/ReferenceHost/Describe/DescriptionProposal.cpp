// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/DescriptionProposal.h"

#include "DigitizerGeneric/Digitizer/DescribedSetting.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "ReferenceHost/Describe/ProposedValues.h"
#include "ReferenceHost/Descriptions/DescriptionTexts.h"
#include "ReferenceHost/Serial/RecordedSession.h"

#include <QRegularExpression>
#include <QXmlStreamWriter>

namespace ReferenceHost {

namespace {

// A comment must not contain "--".
QString commentText(QString text)
{
    static const QRegularExpression dashBeforeDash(QStringLiteral("-(?=-)"));
    return text.replace(dashBeforeDash, QStringLiteral("-\\"));
}

QString headText(const ReportSplit& split, const FoundLayout& layout)
{
    return QStringLiteral(
               "\n"
               "Proposed by \"digitizer describe\" from %1 presses of %2 buttons.\n"
               "\n"
               "Example report: %3\n"
               "\n"
               "Comments marked \"Not sure\" say what to check in the element below them.\n")
        .arg(split.reports.size())
        .arg(layout.codes.size())
        .arg(commentText(QString::fromLatin1(quotedBytes(split.reports.first()))));
}

class ProposalWriter
{
public:
    explicit ProposalWriter(const ProposedValues& values) : m_values(values), m_xml(&m_text)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(2);
    }

    QByteArray text(const ReportSplit& split, const FoundLayout& layout, const TabletFacts& facts);

private:
    void attribute(const QString& name, const QString& value) { m_xml.writeAttribute(name, value); }
    void writeDoubts(Doubt::About about);
    void writePort(const PortSettings& line);
    void writeResolution();
    void writeTemplate(const std::vector<MavSystem::ReportFormatValues>& roles);
    void writeButtons();

    const ProposedValues& m_values;
    QByteArray m_text;
    QXmlStreamWriter m_xml;
};

QByteArray ProposalWriter::text(const ReportSplit& split, const FoundLayout& layout,
                                const TabletFacts& facts)
{
    m_xml.writeStartDocument();
    m_xml.writeComment(headText(split, layout));
    m_xml.writeStartElement(QStringLiteral("digitizer"));
    attribute(QStringLiteral("name"), facts.name);
    attribute(QStringLiteral("support"), QStringLiteral("untested"));
    writePort(facts.line);
    writeResolution();
    writeTemplate(layout.roles);
    writeButtons();
    m_xml.writeEndDocument();
    return m_text;
}

void ProposalWriter::writeDoubts(Doubt::About about)
{
    for (const Doubt& doubt : m_values.doubts) {
        if (doubt.about == about)
            m_xml.writeComment(QStringLiteral(" Not sure: %1 ").arg(commentText(doubt.text)));
    }
}

void ProposalWriter::writePort(const PortSettings& line)
{
    writeDoubts(Doubt::About::Line);
    m_xml.writeStartElement(QStringLiteral("ioPort"));
    m_xml.writeEmptyElement(QStringLiteral("serial"));
    QStringList texts = lineSettingTexts(line);
    for (const MavSystem::DescribedSetting& setting : MavSystem::describedSettings())
        attribute(setting.attribute, texts.takeFirst());
    m_xml.writeEndElement();
}

void ProposalWriter::writeResolution()
{
    writeDoubts(Doubt::About::Resolution);
    m_xml.writeStartElement(QStringLiteral("resolution"));
    attribute(QStringLiteral("unit"), MavSystem::Resolution::unitText(m_values.unit));
    m_xml.writeCharacters(QString::number(m_values.lines));
    m_xml.writeEndElement();
}

void ProposalWriter::writeTemplate(const std::vector<MavSystem::ReportFormatValues>& roles)
{
    writeDoubts(Doubt::About::Template);
    m_xml.writeStartElement(QStringLiteral("reportFormat"));
    attribute(QStringLiteral("length"), QString::number(roles.size()));
    m_xml.writeCharacters(layoutText(roles));
    m_xml.writeEndElement();
}

void ProposalWriter::writeButtons()
{
    writeDoubts(Doubt::About::Buttons);
    m_xml.writeStartElement(QStringLiteral("buttons"));
    attribute(QStringLiteral("count"), QString::number(m_values.codes.size()));
    attribute(QStringLiteral("length"), QString::number(m_values.codes.first().size()));
    for (const QByteArray& code : m_values.codes)
        m_xml.writeTextElement(QStringLiteral("button"), QString::fromLatin1(code));
    m_xml.writeEndElement();
}

} // namespace

QByteArray proposeDescription(const ReportSplit& split, const FoundLayout& layout,
                              const TabletFacts& facts)
{
    const ProposedValues values = proposeValues(split, layout, facts);
    return ProposalWriter(values).text(split, layout, facts);
}

} // namespace ReferenceHost
