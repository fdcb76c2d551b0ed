// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "support/TestHost.h"

#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// The time and the peak memory of one look-up of a description, in a folder with many files and
// with hostile ones, against parsing every file completely. Each case runs in a separate process,
// because peak memory is measured per process.

using namespace MavSystem;

namespace {

const char wanted[] = "Wanted";
constexpr int wantedResolution = 1234;

QByteArray description(const QByteArray& name, int resolution)
{
    return "<digitizer name=\"" + name +
           "\">\n"
           "  <ioPort><serial baudrate=\"9600\" databit=\"8\" parity=\"None\" stopbit=\"1\" "
           "flowctrl=\"none\"/></ioPort>\n"
           "  <resolution unit=\"LPI\">" +
           QByteArray::number(resolution) +
           "</resolution>\n"
           "  <reportFormat length=\"15\">XXXXXUYYYYYUBCL</reportFormat>\n"
           "  <buttons count=\"4\" length=\"1\">\n"
           "    <button>1</button><button>2</button><button>4</button><button>8</button>\n"
           "  </buttons>\n"
           "  <!--" +
           QByteArray(800, '.') + "-->\n</digitizer>\n";
}

void wantedAlone(TestHost& host)
{
    host.writeDescription(QStringLiteral("wanted.xml"), description(wanted, wantedResolution));
}

void manyFiles(TestHost& host)
{
    wantedAlone(host);
    for (int index = 0; index < 1999; ++index) {
        QByteArray content = description("Other " + QByteArray::number(index), 1000);
        if (index % 200 == 0) // ten of them, and with the name that is looked for
            content = description(wanted, 1000).replace("</buttons>", "</button>");
        host.writeDescription(QStringLiteral("%1.xml").arg(index), content);
    }
}

void entityBomb(TestHost& host)
{
    wantedAlone(host);
    const QByteArray head =
        "<!DOCTYPE d [<!ENTITY e '" + QByteArray(4000, 'x') + "'>]><d name='Wanted'>";
    host.writeDescription(QStringLiteral("bomb.xml"),
                          head + QByteArray("&e;").repeated((65536 - head.size() - 4) / 3) +
                              "</d>");
}

void nestedElements(TestHost& host)
{
    wantedAlone(host);
    host.writeDescription(QStringLiteral("nested.xml"),
                          "<d name='Wanted'>" + QByteArray("<a>").repeated(500000) +
                              QByteArray("</a>").repeated(500000) + "</d>");
}

void sparseFile(TestHost& host)
{
    wantedAlone(host);
    QFile sparse(host.writeDescription(QStringLiteral("sparse.xml"), "<d name='Wanted'>"));
    if (!sparse.resize(Q_INT64_C(1) << 30))
        qFatal("no room for a sparse file");
}

bool lookUp(const QString& name)
{
    const std::unique_ptr<DigitizerArgument> found(DigitizerArgument::digitizerArgument(name));
    const bool right = int(found->m_resolution) == wantedResolution;
    return right == (name == QLatin1String(wanted));
}

// The rival: the search as specified, parsing every file completely.
bool parseEveryFile(const QString& name)
{
    QDir folder(MavApplication::instance()->appDataLocation());
    folder.cd(QStringLiteral("generated"));
    for (const QFileInfo& info : folder.entryInfoList(QDir::Files, QDir::Unsorted)) {
        QFile file(info.absoluteFilePath());
        QDomDocument document;
        if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file, false))
            continue;
        const QDomElement root = document.documentElement();
        if (root.attribute(QStringLiteral("name")) == name)
            return root.firstChildElement(QStringLiteral("resolution")).text().toInt() ==
                   wantedResolution;
    }
    return name != QLatin1String(wanted);
}

using Search = std::function<bool(const QString&)>;

double medianMilliseconds(const Search& search, const QString& name, bool& right)
{
    std::vector<double> times;
    for (int repetition = 0; repetition < 9; ++repetition) {
        QElapsedTimer timer;
        timer.start();
        right = search(name) && right;
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + 4, times.end());
    return times[4];
}

// Runs in the process that is measured.
int measure(const char* title, const Search& search)
{
    bool right = true;
    const double present = medianMilliseconds(search, QLatin1String(wanted), right);
    // With a name that no file has, the search reads all files, whatever their order.
    const double absent = medianMilliseconds(search, QStringLiteral("Absent"), right);
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%-44s %12.3f %12.3f %10.1f   %s\n", title, present, absent,
                double(usage.ru_maxrss) / 1024.0, right ? "right" : "WRONG");
    std::fflush(stdout);
    return right ? 0 : 1;
}

/// Returns 0 when the right description was found each time.
int run(const char* title, const std::function<void(TestHost&)>& prepare, const Search& search)
{
    TestHost host;
    prepare(host);
    std::fflush(stdout);
    const pid_t process = fork();
    if (process == 0)
        _exit(measure(title, search));
    int status = 0;
    waitpid(process, &status, 0);
    if (status != 0)
        std::printf("%-44s ended with status %d\n", title, status);
    return status;
}

} // namespace

int main()
{
    std::printf("%-44s %12s %12s %10s   %s\n", "one look-up, median of 9", "found, ms",
                "absent, ms", "peak, MiB", "result");
    int status = run("one file", wantedAlone, lookUp);
    status |= run("2,000 files, 10 of them broken", manyFiles, lookUp);
    status |= run("the same, each file parsed completely", manyFiles, parseEveryFile);
    status |= run("with an entity bomb of 64 kB", entityBomb, lookUp);
    status |= run("with 500,000 nested elements", nestedElements, lookUp);
    status |= run("with a sparse file of 1 GiB", sparseFile, lookUp);
    return status == 0 ? 0 : 1;
}
