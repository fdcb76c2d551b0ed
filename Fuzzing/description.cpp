// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "Fuzzing/FuzzTarget.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "ReferenceHost/Lint/XmlOutline.h"
#include "support/TestHost.h"

#include <algorithm>

using namespace MavSystem;
using namespace ReferenceHost;
using DescriptionFiles::BrokenFile;

namespace {

// A document without declarations that both parsers of Qt take is no matter of taste.
bool mustBeTaken(const QByteArray& content)
{
    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    for (int nesting = 0; !reader.atEnd(); depth = std::max(depth, nesting)) {
        reader.readNext();
        nesting += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
    }
    return !reader.hasError() && depth <= DescriptionLimits::nesting && !content.contains("<!") &&
           QString::fromUtf8(content).toUtf8() == content &&
           QDomDocument().setContent(content, false);
}

void requireFound(const QString& name, bool byLoader, bool byPresence)
{
    Digitizer& digitizer = *Digitizer::instance();
    digitizer.selectDevice(name, "File:");
    digitizer.digitBeep();
    require(DescriptionFiles::find(name, BrokenFile::Skipped).has_value() == byLoader,
            "the loader");
    require((Digitizer::deviceExist() == "No Error has occurred") == byPresence,
            "the presence check");
}

bool hasErrors(const QVector<LintFinding>& findings)
{
    return std::any_of(findings.begin(), findings.end(), [](const LintFinding& finding) {
        require(!textOf("d", finding).contains('\n'), "one line");
        return finding.severity == LintFinding::Error;
    });
}

QString templateOf(const DigitizerArgument& description)
{
    QString letters;
    for (const ReportFormatValues role : description.m_reportFormat)
        letters += QLatin1Char("?BXYU.SCL"[role]);
    return letters;
}

// What the lint finds right is what the loader gives.
void requireAsWritten(const XmlElement& root, const DigitizerArgument& description)
{
    const XmlElement* const report = root.child("reportFormat");
    const XmlElement* const buttons = root.child("buttons");
    const XmlElement* const resolution = root.child("resolution");
    require(!report || templateOf(description) == report->text, "the template");
    require(!resolution || (description.m_resolution == resolution->text.toInt() &&
                            description.m_resolution >= 1),
            "the resolution");
    require(!buttons ||
                int(description.m_buttons.size()) == buttons->childrenNamed("button").size(),
            "the buttons");
}

} // namespace

// A description file: loader, presence check, beep and lint take it for the same.
void fuzz(const QByteArray& input)
{
    static TestHost host;
    host.writeDescription("d", input);
    const XmlOutline outline = xmlOutline(input);
    const bool lintedWithErrors = hasErrors(lintDescription(input));
    require(outline.root || !mustBeTaken(input), "well-formed");
    require(outline.root || lintedWithErrors, "not well-formed, and the lint says nothing");
    if (!outline.root) {
        requireFound(QString(), false, true);
        requireFound("A", false, false);
        return;
    }
    const XmlAttribute* const name = outline.root->attribute("name");
    const QString driver = name ? name->value : QString();
    requireFound(driver, true, true);
    requireFound(driver + 'A', false, false);
    const std::unique_ptr<DigitizerArgument> description(
        DigitizerArgument::digitizerArgument(driver));
    const ReportLayout layout(*description);
    require(layout.x.size() + layout.y.size() <= description->m_reportLength, "the layout");
    if (!lintedWithErrors)
        requireAsWritten(*outline.root, *description);
}
