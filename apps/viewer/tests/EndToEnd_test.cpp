// SPDX-License-Identifier: MIT
// Runs the program itself: exit codes, messages and files.
#include "Workspace.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Outcome {
    int exitCode = -1;
    std::string out;
    std::string err;
};

class ZembraView : public testing::Test {
protected:
    Outcome run(const QStringList& arguments, bool platformSet = true) const {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(workspace.path("")));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        if (platformSet)
            environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(ZEMBRA_VIEW_PROGRAM), arguments);
        Outcome outcome;
        if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
            return outcome;
        outcome.exitCode = process.exitCode();
        outcome.out = process.readAllStandardOutput().toStdString();
        outcome.err = process.readAllStandardError().toStdString();
        return outcome;
    }

    QImage picture(const std::string& name) const {
        return QImage(QString::fromStdString(workspace.path(name)));
    }

    const Workspace workspace;
};

TEST_F(ZembraView, ExportsEveryKindAtOnceAndSaysNothing) {
    workspace.write("data.csv", "x,y\n1,2\n2,4\n3,3\n");
    for (const bool platformSet : {true, false}) {
        const Outcome outcome = run({"data.csv", "--size", "400x300", "--export", "a.png",
                                     "--export", "a.svg", "--export", "a.pdf"},
                                    platformSet);
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(picture("a.png").size(), QSize(400, 300));
        EXPECT_THAT(workspace.read("a.svg"), EndsWith("</svg>\n"));
        EXPECT_THAT(workspace.read("a.pdf"), StartsWith("%PDF-"));
    }
}

TEST_F(ZembraView, DialectsOfTheSameDataGiveTheSamePicture) {
    const std::vector<std::string> texts = {
        "x,y\n1.5,2.25\n2.5,4.5\n3.5,3.75\n",
        "\xEF\xBB\xBFx,y\r\n1.5,2.25\r\n2.5,4.5\r\n3.5,3.75\r\n",
        "x;y\n1,5;2,25\n2,5;4,5\n3,5;3,75\n",
        "x\ty\n1.5\t2.25\n2.5\t4.5\n3.5\t3.75",
        "x|y\n1,5|2,25\n2,5|4,5\n3,5|3,75\n",
        "\"x\",\"y\"\n\"1.5\",\"2.25\"\n\n\"2.5\",\"4.5\"\n\"3.5\",\"3.75\"\n",
    };
    std::string first;
    for (const std::string& text : texts) {
        workspace.write("data.csv", text);
        ASSERT_EQ(run({"data.csv", "--export", "a.png"}).exitCode, 0) << text;
        const std::string bytes = workspace.read("a.png");
        ASSERT_FALSE(bytes.empty());
        if (first.empty())
            first = bytes;
        EXPECT_TRUE(bytes == first) << text;
    }
}

TEST_F(ZembraView, WithoutADisplayTheChartGoesToTheFolderOut) {
    workspace.write("data.csv", "x,y\n1,2\n2,4\n");
    const Outcome outcome = run({"data.csv"}, false);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.err, HasSubstr("no display; wrote "));
    EXPECT_THAT(outcome.err, HasSubstr("out/data.png"));
    EXPECT_EQ(picture("out/data.png").size(), QSize(960, 600));
}

TEST_F(ZembraView, WithoutAFileTheSamplesGoThere) {
    const Outcome outcome = run({}, false);
    EXPECT_EQ(outcome.exitCode, 0);
    for (const char* const name : {"signals", "time-series", "logarithmic", "scatter"})
        EXPECT_FALSE(picture("out/" + std::string(name) + ".png").isNull()) << name;
}

TEST_F(ZembraView, HelpAndVersionGoToStandardOutput) {
    EXPECT_THAT(run({"--help"}).out, StartsWith("Usage: zembra-view"));
    EXPECT_EQ(run({"--help"}).exitCode, 0);
    EXPECT_THAT(run({"--version"}).out, StartsWith("zembra-view "));
}

TEST_F(ZembraView, LeftOutColumnsAreTold) {
    workspace.write("data.csv", "x,y,w\n1,2,a\n2,4,b\n");
    const Outcome outcome = run({"data.csv", "--export", "a.png"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.err, "zembra-view: data.csv: column 3 (w) holds words; left out\n");
}

TEST_F(ZembraView, BadInputGivesOneLineAndExitCodeTwo) {
    workspace.write("data.csv", "x,y\n1,2\n2,oops\n3,4\n4,5\n");
    workspace.write("empty.csv", "");
    const std::vector<std::pair<QStringList, std::string>> cases = {
        {{"data.csv"}, "zembra-view: data.csv:3: column 2 (y): \"oops\" is not a number\n"},
        {{"data.csv", "--x", "q"},
         "zembra-view: data.csv:1: --x: no column is called \"q\"; there are x, y\n"},
        {{"empty.csv"}, "zembra-view: empty.csv:1: the file is empty\n"},
        {{"none.csv"}, "zembra-view: none.csv: cannot be read: No such file or directory\n"},
        {{"--wrong"}, "zembra-view: --wrong: unknown option; zembra-view --help lists them all\n"},
    };
    for (const auto& [arguments, message] : cases) {
        const Outcome outcome = run(arguments + QStringList{"--export", "a.png"});
        EXPECT_EQ(outcome.exitCode, 2) << message;
        EXPECT_EQ(outcome.err, message);
        EXPECT_FALSE(workspace.has("a.png"));
    }
}

TEST_F(ZembraView, AnUnwritableExportSaysWhyAndExitsWithOne) {
    workspace.write("data.csv", "x,y\n1,2\n2,3\n");
    const Outcome outcome = run({"data.csv", "--export", "no/a.png"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.err, "zembra-view: no/a.png: cannot be written: No such file or directory\n");
}

TEST_F(ZembraView, NothingFiniteToShowIsStillAPicture) {
    workspace.write("data.csv", "x,y,z\n1,,1\n");
    EXPECT_EQ(run({"data.csv", "--export", "a.png"}).exitCode, 0);
    EXPECT_FALSE(picture("a.png").isNull());
}

} // namespace
} // namespace viewer
