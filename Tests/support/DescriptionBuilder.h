// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// The text of a description file; a test states only what it varies. Default: the driver "A",
/// 9600 8N1, 10 lines per millimetre, reports such as "123456782", four buttons "1" to "4".
class DescriptionBuilder
{
public:
    explicit DescriptionBuilder(const QByteArray& name = "A") : m_name(name) {}

    /// Each takes a whole element; an empty text leaves it out.
    DescriptionBuilder& ioPort(const QByteArray& xml) { return set(m_ioPort, xml); }
    DescriptionBuilder& resolution(const QByteArray& xml) { return set(m_resolution, xml); }
    DescriptionBuilder& reportFormat(const QByteArray& xml) { return set(m_reportFormat, xml); }
    DescriptionBuilder& buttons(const QByteArray& xml) { return set(m_buttons, xml); }
    DescriptionBuilder& beep(const QByteArray& xml) { return set(m_beep, xml); }

    DescriptionBuilder& resolution(int lines, const QByteArray& unit)
    {
        return resolution("<resolution unit='" + unit + "'>" + QByteArray::number(lines) +
                          "</resolution>");
    }

    DescriptionBuilder& report(const QByteArray& roles)
    {
        return reportFormat("<reportFormat length='" + QByteArray::number(roles.size()) + "'>" +
                            roles + "</reportFormat>");
    }

    DescriptionBuilder& buttons(const QByteArray& count, int length, const QByteArrayList& codes)
    {
        QByteArray xml =
            "<buttons count='" + count + "' length='" + QByteArray::number(length) + "'>";
        for (const QByteArray& code : codes)
            xml += "<button>" + code + "</button>";
        return buttons(xml + "</buttons>");
    }

    /// Takes any of these elements.
    DescriptionBuilder& element(const QByteArray& xml)
    {
        for (QByteArray* const known : {&m_ioPort, &m_resolution, &m_reportFormat, &m_buttons})
            *known = xml.startsWith(known->left(7)) ? xml : *known;
        return *this;
    }

    QByteArray xml() const
    {
        return "<device name='" + m_name + "'>" + m_ioPort + m_resolution + m_reportFormat +
               m_buttons + m_beep + "</device>";
    }

private:
    DescriptionBuilder& set(QByteArray& element, const QByteArray& xml)
    {
        element = xml;
        return *this;
    }

    QByteArray m_name;
    QByteArray m_ioPort = "<ioPort><serial baudrate='9600' databit='8' parity='None' stopbit='1' "
                          "flowctrl='none'/></ioPort>";
    QByteArray m_resolution = "<resolution unit='LPMM'>10</resolution>";
    QByteArray m_reportFormat = "<reportFormat length='9'>XXXXYYYYB</reportFormat>";
    QByteArray m_buttons = "<buttons count='4' length='1'><button>1</button><button>2</button>"
                           "<button>3</button><button>4</button></buttons>";
    QByteArray m_beep;
};
