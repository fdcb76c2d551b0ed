// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/DescriptionLint.h"

#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "DigitizerGeneric/Digitizer/TemplateLetters.h"
#include "ReferenceHost/Lint/DescriptionKeys.h"
#include "ReferenceHost/Texts/Counted.h"
#include "ReferenceHost/Texts/NearestNames.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

constexpr int codeCharacters = std::tuple_size<decltype(ButtonValue::m_code)>::value;

// In one line, whatever the file holds.
QString printable(const QString& text)
{
    QString line;
    for (const QChar character : text)
        line +=
            character.isPrint() || character.isSurrogate()
                ? QString(character)
                : QStringLiteral("\\u%1").arg(int(character.unicode()), 4, 16, QLatin1Char('0'));
    return line;
}

QString quoted(const QString& text)
{
    constexpr int shown = 40;
    return QStringLiteral("\"%1\"%2")
        .arg(printable(text.left(shown)), QLatin1String(text.size() > shown ? "..." : ""));
}

QString oneOf(const QStringList& texts)
{
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QStringLiteral(", "));
}

struct Range
{
    int minimum;
    int maximum;
};

/// A character of the template, and how many of it have a meaning.
struct Role
{
    ReportFormatValues value;
    bool needed;
    int useful;
};

constexpr int anyNumber = ReportLayout::maximumCharacters;
constexpr Role roles[] = {
    {FORMAT_X, true, anyNumber},
    {FORMAT_Y, true, anyNumber},
    {FORMAT_POINT, false, 2},
    {FORMAT_SIGN, false, 2},
    {FORMAT_BUTTON, true, codeCharacters},
    {FORMAT_CR, false, anyNumber},
    {FORMAT_LINE_FEED, false, anyNumber},
    {FORMAT_UNUSED, false, anyNumber},
};

QString roleLetters()
{
    QString letters;
    for (const Role& role : roles)
        letters += TemplateLetters::letterOf(role.value);
    return letters;
}

class Lint
{
public:
    Lint(const XmlOutline& outline, const QMap<QString, QString>& otherNames)
        : m_outline(outline), m_otherNames(otherNames)
    {}

    QVector<LintFinding> run();

private:
    void add(int offset, LintFinding::Severity severity, const QString& what, const QString& found,
             const QString& accepted)
    {
        m_findings.append({m_outline.position(offset), severity, what, found, accepted});
    }
    void error(int offset, const QString& what, const QString& found, const QString& accepted)
    {
        add(offset, LintFinding::Error, what, found, accepted);
    }
    void warn(int offset, const QString& what, const QString& found, const QString& accepted)
    {
        add(offset, LintFinding::Warning, what, found, accepted);
    }

    void checkElement(const XmlElement& element, const KnownElement& known);
    void checkPresence(const XmlElement& parent, const QString& missing, Presence presence,
                       const QString& accepted);
    void checkAttributes(const XmlElement& element, const KnownElement& known);
    void checkAttributeText(const XmlAttribute& attribute, const KnownAttribute& known);
    void checkChildren(const XmlElement& element, const KnownElement& known);
    void checkIgnoredText(const XmlElement& element, const KnownElement& known);

    std::optional<int> number(const QString& what, const QString& text, int offset, Range range);
    std::optional<int> numberOf(const XmlElement& element, const QString& attribute, Range range);

    void checkName(const XmlElement& root);
    void checkReportFormat(const XmlElement& reportFormat);
    void checkTemplateCharacters(const XmlElement& reportFormat, int length);
    void checkRole(const XmlElement& reportFormat, const QString& read, const Role& role);
    void checkButtons(const XmlElement& buttons);
    void checkButtonCount(const XmlElement& buttons, int count, int present);
    void checkCodeLength(const XmlElement& buttons, int length);
    void checkCode(const XmlElement& button, std::optional<int> length);
    void checkEqualCodes(const QVector<XmlElement>& buttons, int length);
    void checkBeep(const XmlElement& beepString);

    const XmlOutline& m_outline;
    const QMap<QString, QString>& m_otherNames;
    QVector<LintFinding> m_findings;
    int m_buttonPositions = 0;   // of the template, as far as it has a meaning
    bool m_hasOwnLayout = false; // the driver of this name does not use the template
    bool m_isPen = false;        // it has neither a serial line nor a report
};

QVector<LintFinding> Lint::run()
{
    for (const XmlProblem& problem : m_outline.problems)
        error(problem.offset,
              m_outline.root ? QStringLiteral("entity without a text here")
                             : QStringLiteral("not well-formed"),
              printable(problem.text),
              m_outline.root ? QStringLiteral("characters")
                             : QStringLiteral("well-formed XML within the limits"));
    if (m_outline.root) {
        const XmlElement& root = *m_outline.root;
        m_isPen =
            !root.child(QStringLiteral("ioPort")) && !root.child(QStringLiteral("reportFormat"));
        checkName(root);
        checkElement(root, knownDescription());
        if (const XmlElement* resolution = root.child(QStringLiteral("resolution")))
            number(QStringLiteral("resolution"), resolution->text, resolution->textOffset(),
                   {1, Resolution::mostLines});
        if (const XmlElement* reportFormat = root.child(QStringLiteral("reportFormat")))
            checkReportFormat(*reportFormat);
        if (const XmlElement* buttons = root.child(QStringLiteral("buttons")))
            checkButtons(*buttons);
        if (const XmlElement* beepString = root.child(QStringLiteral("beepString")))
            checkBeep(*beepString);
    }
    std::stable_sort(m_findings.begin(), m_findings.end(), [](const auto& one, const auto& other) {
        return std::tie(one.position.line, one.position.column) <
               std::tie(other.position.line, other.position.column);
    });
    return m_findings;
}

void Lint::checkElement(const XmlElement& element, const KnownElement& known)
{
    checkAttributes(element, known);
    checkChildren(element, known);
    checkIgnoredText(element, known);
}

void Lint::checkPresence(const XmlElement& parent, const QString& missing, Presence presence,
                         const QString& accepted)
{
    const bool isNotNeeded = presence == Presence::Optional ||
                             (presence == Presence::OfPort && m_isPen) ||
                             (presence == Presence::OfReport && m_hasOwnLayout) ||
                             (presence == Presence::OfTemplate && (m_hasOwnLayout || m_isPen));
    if (isNotNeeded)
        return;
    add(parent.offset, presence == Presence::Advisable ? LintFinding::Warning : LintFinding::Error,
        missing + QLatin1String(" is missing"), QStringLiteral("none"), accepted);
}

void Lint::checkAttributes(const XmlElement& element, const KnownElement& known)
{
    QStringList names;
    for (const KnownAttribute& attribute : known.attributes) {
        names << attribute.name;
        if (const XmlAttribute* present = element.attribute(attribute.name))
            checkAttributeText(*present, attribute);
        else
            checkPresence(element, QStringLiteral("attribute \"%1\"").arg(attribute.name),
                          attribute.presence,
                          attribute.texts.isEmpty() ? attribute.name + QLatin1String("=\"...\"")
                                                    : oneOf(attribute.texts));
    }
    for (const XmlAttribute& attribute : element.attributes) {
        const QStringList near = nearestNames(attribute.name, names);
        if (!names.contains(attribute.name))
            error(attribute.offset, QStringLiteral("unknown attribute"), quoted(attribute.name),
                  oneOf(near.isEmpty() ? names : near));
    }
}

void Lint::checkAttributeText(const XmlAttribute& attribute, const KnownAttribute& known)
{
    if (!known.texts.isEmpty() && !known.texts.contains(attribute.value))
        add(attribute.offset, known.ofOtherText,
            QStringLiteral("unknown text of \"%1\"").arg(attribute.name), quoted(attribute.value),
            oneOf(known.texts));
}

void Lint::checkChildren(const XmlElement& element, const KnownElement& known)
{
    QStringList names;
    for (const KnownElement& child : known.children) {
        names << child.name;
        const QVector<XmlElement> present = element.childrenNamed(child.name);
        if (present.isEmpty())
            checkPresence(element, QStringLiteral("element \"%1\"").arg(child.name), child.presence,
                          QStringLiteral("<%1>").arg(child.name));
        for (int index = 0; index < present.size(); ++index) {
            if (index == 0 || child.repeats)
                checkElement(present.at(index), child);
            else
                error(present.at(index).offset,
                      QStringLiteral("second element of its name, which is ignored"),
                      quoted(child.name), QStringLiteral("one"));
        }
    }
    for (const XmlElement& child : element.children) {
        const QStringList near = nearestNames(child.name, names);
        if (!names.contains(child.name))
            error(child.offset, QStringLiteral("unknown element"), quoted(child.name),
                  oneOf(near.isEmpty() ? names : near));
    }
}

void Lint::checkIgnoredText(const XmlElement& element, const KnownElement& known)
{
    if (!known.hasText && !element.text.trimmed().isEmpty())
        error(element.textOffset(), QStringLiteral("text that is ignored"),
              quoted(element.text.trimmed()), QStringLiteral("elements only"));
}

// Numbers are read exactly as the driver reads them.
std::optional<int> Lint::number(const QString& what, const QString& text, int offset, Range range)
{
    bool isNumber = false;
    const qlonglong value = text.toLongLong(&isNumber);
    if (isNumber && value >= range.minimum && value <= range.maximum)
        return int(value);
    error(offset,
          QStringLiteral("%1 %2").arg(
              what, QLatin1String(isNumber ? "is out of range" : "is not a whole number")),
          quoted(text), QStringLiteral("%1 to %2").arg(range.minimum).arg(range.maximum));
    return std::nullopt;
}

std::optional<int> Lint::numberOf(const XmlElement& element, const QString& attribute, Range range)
{
    const XmlAttribute* present = element.attribute(attribute);
    if (!present)
        return std::nullopt; // reported as missing
    return number(QStringLiteral("\"%1\" of \"%2\"").arg(attribute, element.name), present->value,
                  present->offset, range);
}

void Lint::checkName(const XmlElement& root)
{
    const XmlAttribute* name = root.attribute(QStringLiteral("name"));
    if (!name)
        return; // reported as missing
    m_hasOwnLayout = LectraE92::isName(name->value);
    if (name->value.isEmpty())
        error(name->offset, QStringLiteral("empty name"), quoted(name->value),
              QStringLiteral("the name by which the driver is selected"));
    else if (m_otherNames.contains(name->value))
        error(name->offset, QStringLiteral("name of another file"), quoted(name->value),
              QStringLiteral("a name that %1 does not have").arg(m_otherNames.value(name->value)));
}

void Lint::checkReportFormat(const XmlElement& reportFormat)
{
    const std::optional<int> length =
        numberOf(reportFormat, QStringLiteral("length"), {1, ReportLayout::maximumCharacters});
    const int present = reportFormat.text.size();
    const int read = std::min(length.value_or(present), present);
    checkTemplateCharacters(reportFormat, read);
    if (length && present < *length)
        error(reportFormat.textOffset(), QStringLiteral("template shorter than its length"),
              counted(present, "character"), QString::number(*length));
    else if (present > read)
        error(reportFormat.textOffsetAt(read), QStringLiteral("template longer than its length"),
              counted(present, "character"), QString::number(read));
}

void Lint::checkTemplateCharacters(const XmlElement& reportFormat, int length)
{
    const QString letters = roleLetters();
    const QString read = reportFormat.text.left(length);
    bool isBroken = false;
    for (int index = 0; index < length; ++index) {
        const QChar character = read.at(index);
        // The first of each kind: a template in lower case has as many as characters.
        if (letters.contains(character) || read.indexOf(character) < index)
            continue;
        isBroken = true;
        error(reportFormat.textOffsetAt(index),
              QStringLiteral("character %1 of the template").arg(index + 1), quoted(character),
              QStringLiteral("one of ") + letters);
    }
    for (const Role& role : roles) {
        if (!isBroken)
            checkRole(reportFormat, read, role);
    }
    m_buttonPositions =
        std::min(read.count(TemplateLetters::letterOf(FORMAT_BUTTON)), codeCharacters);
}

void Lint::checkRole(const XmlElement& reportFormat, const QString& read, const Role& role)
{
    const QChar letter = TemplateLetters::letterOf(role.value);
    const int present = read.count(letter);
    if (present == 0 && role.needed)
        error(reportFormat.textOffset(), QStringLiteral("template without \"%1\"").arg(letter),
              quoted(read), QStringLiteral("one or more"));
    if (present <= role.useful)
        return;
    int surplus = -1;
    for (int count = 0; count <= role.useful; ++count)
        surplus = read.indexOf(letter, surplus + 1);
    warn(reportFormat.textOffsetAt(surplus),
         QStringLiteral("more \"%1\" in the template than have a meaning").arg(letter),
         QString::number(present), QStringLiteral("up to %1").arg(role.useful));
}

void Lint::checkButtons(const XmlElement& buttons)
{
    QVector<XmlElement> codes = buttons.childrenNamed(QStringLiteral("button"));
    if (const auto count = numberOf(buttons, QStringLiteral("count"), {1, maximumButtonCount})) {
        checkButtonCount(buttons, *count, codes.size());
        codes = codes.mid(0, *count);
    }
    const auto length = numberOf(buttons, QStringLiteral("length"), {1, codeCharacters});
    for (const XmlElement& code : codes)
        checkCode(code, length);
    if (!length)
        return;
    checkEqualCodes(codes, *length);
    if (m_buttonPositions > 0)
        checkCodeLength(buttons, *length);
}

void Lint::checkButtonCount(const XmlElement& buttons, int count, int present)
{
    const XmlAttribute& attribute = *buttons.attribute(QStringLiteral("count"));
    // The text decides how buttons are numbered, so that "04" is not a cursor of four buttons.
    if (attribute.value != QLatin1String("4") && count != 16)
        warn(attribute.offset, QStringLiteral("count of neither four nor sixteen buttons"),
             quoted(attribute.value), QStringLiteral("4, 16"));
    const QString found = counted(present, "button");
    if (present > count)
        error(buttons.childrenNamed(QStringLiteral("button")).at(count).offset,
              QStringLiteral("more buttons than \"count\", which are ignored"), found,
              QString::number(count));
    else if (present < count)
        error(attribute.offset, QStringLiteral("fewer buttons than \"count\""), found,
              QString::number(count));
}

void Lint::checkCodeLength(const XmlElement& buttons, int length)
{
    const int positions = m_buttonPositions;
    if (length == positions)
        return;
    const auto reachesPastReport = [&](const XmlElement& code) {
        return !code.text.mid(positions, length - positions).trimmed().isEmpty();
    };
    const QVector<XmlElement> codes = buttons.childrenNamed(QStringLiteral("button"));
    const bool neverMatch =
        length > positions && std::any_of(codes.begin(), codes.end(), reachesPastReport);
    add(buttons.attribute(QStringLiteral("length"))->offset,
        neverMatch ? LintFinding::Error : LintFinding::Warning,
        neverMatch ? QStringLiteral("codes that no report can match")
                   : QStringLiteral("\"length\" of \"buttons\" differs from the template"),
        QString::number(length),
        QStringLiteral("%1, as many as the template has \"B\"").arg(positions));
}

void Lint::checkCode(const XmlElement& button, std::optional<int> length)
{
    const QString& text = button.text;
    const int characters = text.size();
    for (int index = 0; index < std::min(characters, codeCharacters); ++index) {
        if (text.at(index).unicode() > 0xff)
            error(button.textOffsetAt(index),
                  QStringLiteral("character of a code without a byte of its own"),
                  quoted(text.at(index)), QStringLiteral("characters up to U+00FF"));
    }
    const QString accepted =
        length ? counted(*length, "character") : QStringLiteral("1 to 3 characters");
    if (characters > codeCharacters)
        error(button.textOffsetAt(codeCharacters),
              QStringLiteral("code is cut to three characters"), quoted(text), accepted);
    else if (length && characters > *length)
        warn(button.textOffsetAt(*length), QStringLiteral("end of a code that is not compared"),
             quoted(text), accepted);
    else if (length && characters < *length)
        warn(button.textOffset(), QStringLiteral("short code, which is filled up with blanks"),
             quoted(text), accepted);
}

void Lint::checkEqualCodes(const QVector<XmlElement>& buttons, int length)
{
    QMap<QString, int> lines;
    for (const XmlElement& button : buttons) {
        const QString significant = button.text.leftJustified(length).left(length);
        if (lines.contains(significant))
            error(button.textOffset(), QStringLiteral("code of an earlier button"),
                  quoted(significant),
                  QStringLiteral("another than that in line %1").arg(lines.value(significant)));
        else
            lines.insert(significant, m_outline.position(button.offset).line);
    }
}

void Lint::checkBeep(const XmlElement& beepString)
{
    for (const XmlElement& character : beepString.childrenNamed(QStringLiteral("character")))
        number(QStringLiteral("character of the beep"), character.text, character.textOffset(),
               {0, 255});
}

} // namespace

QVector<LintFinding> lintDescription(const QByteArray& content,
                                     const QMap<QString, QString>& otherNames)
{
    const XmlOutline outline = xmlOutline(content);
    return Lint(outline, otherNames).run();
}

} // namespace ReferenceHost
