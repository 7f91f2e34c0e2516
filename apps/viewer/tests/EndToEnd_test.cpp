// SPDX-License-Identifier: MIT
// Runs the program itself: exit codes, messages and files.
#include "Workspace.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

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
    Outcome run(const QStringList& arguments, bool platformSet = true,
                const std::string& input = {}) const {
        return start(QStringLiteral(ZEMBRA_VIEW_PROGRAM), arguments, platformSet, input);
    }

    Outcome start(const QString& program, const QStringList& arguments, bool platformSet = true,
                  const std::string& input = {}) const {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(workspace.path("")));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        if (platformSet)
            environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process.setProcessEnvironment(environment);
        if (!input.empty())
            process.setStandardInputFile(QString::fromStdString(workspace.path(input)));
        process.start(program, arguments);
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

    Workspace workspace;
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
    workspace.write("bad.json", "{\"width\": 3,\n\"height\": oops}");
    const std::vector<std::pair<QStringList, std::string>> cases = {
        {{"data.csv"}, "zembra-view: data.csv:3: column 2 (y): \"oops\" is not a number\n"},
        {{"data.csv", "--x", "q"},
         "zembra-view: data.csv:1: --x: no column is called \"q\"; there are x, y\n"},
        {{"empty.csv"}, "zembra-view: empty.csv:1: the file is empty\n"},
        {{"none.csv"}, "zembra-view: none.csv: cannot be read: No such file or directory\n"},
        {{"data.csv", "--kind", "pie"},
         "zembra-view: --kind pie: not a kind; there are line, scatter, bar, hist, box, heat, "
         "candle\n"},
        {{"data.csv", "--kind", "candle"},
         "zembra-view: data.csv:1: --kind candle: no column is called \"open\"; there are x, y\n"},
        {{"data.csv", "--kind", "hist", "--x", "x"},
         "zembra-view: --kind hist: --x has no meaning with it\n"},
        {{"bad.json"}, "zembra-view: bad.json:2: illegal number\n"},
        {{"--wrong"}, "zembra-view: --wrong: unknown option; zembra-view --help lists them all\n"},
    };
    for (const auto& [arguments, message] : cases) {
        const Outcome outcome = run(arguments + QStringList{"--export", "a.png"});
        EXPECT_EQ(outcome.exitCode, 2) << message;
        EXPECT_EQ(outcome.err, message);
        EXPECT_FALSE(workspace.has("a.png"));
    }
}

TEST_F(ZembraView, EveryKindIsAPictureOfItsOwn) {
    std::string text = "date,open,high,low,close,place\n";
    for (int day = 10; day < 30; ++day) {
        const int open = 100 + (day * 7) % 13;
        text += "2001-03-" + std::to_string(day) + "," + std::to_string(open) + "," +
                std::to_string(open + 5) + "," + std::to_string(open - 4) + "," +
                std::to_string(open + day % 5 - 2) + "," + (day % 2 == 0 ? "a" : "b") + "\n";
    }
    workspace.write("data.csv", text);
    std::vector<std::string> pictures;
    for (const char* const kind : {"line", "scatter", "bar", "hist", "box", "candle"}) {
        const Outcome outcome = run({"data.csv", "--kind", kind, "--export", "a.png"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
        pictures.push_back(workspace.read("a.png"));
    }
    workspace.write("data.csv", "1,2,3\n4,5,6\n");
    EXPECT_EQ(run({"data.csv", "--kind", "heat", "--export", "a.png"}).exitCode, 0);
    pictures.push_back(workspace.read("a.png"));
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        EXPECT_FALSE(pictures[i].empty());
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(pictures[i] == pictures[k]) << i << " and " << k;
    }
}

TEST_F(ZembraView, AGridAndAMatrixOfTheSameValuesAreTheSamePicture) {
    workspace.write("a.csv", "1990,2010,3000\n2100,,2050\n");
    workspace.write("a.json",
                    R"({"width": 3, "height": 2, "values": [1990, 2010, 3000, 2100, null, 2050]})");
    EXPECT_EQ(run({"a.csv", "--kind", "heat", "--export", "csv.png"}).exitCode, 0);
    EXPECT_EQ(run({"a.json", "--export", "json.png"}).exitCode, 0);
    EXPECT_FALSE(workspace.read("csv.png").empty());
    EXPECT_TRUE(workspace.read("csv.png") == workspace.read("json.png"));
}

TEST_F(ZembraView, ATableComesThroughStandardInput) {
    workspace.write("data.csv", "x,y\n1,2\n2,4\n3,3\n");
    const Outcome outcome = run({"-", "--export", "a.png"}, true, "data.csv");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(run({"data.csv", "--title", "standard input", "--export", "b.png"}).exitCode, 0);
    EXPECT_TRUE(workspace.read("a.png") == workspace.read("b.png"));
}

TEST_F(ZembraView, AnUnwritableExportSaysWhyAndExitsWithOne) {
    workspace.write("data.csv", "x,y\n1,2\n2,3\n");
    const Outcome outcome = run({"data.csv", "--export", "no/a.png"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.err, "zembra-view: no/a.png: cannot be written: No such file or directory\n");
}

#ifdef __linux__
TEST_F(ZembraView, AFolderThatTakesNoFilesSaysSoAndExitsWithOne) {
    workspace.write("data.csv", "x,y\n1,2\n2,3\n");
    // Not even root makes files there.
    const Outcome outcome = run({"data.csv", "--export", "/proc/a.png"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, StartsWith("zembra-view: /proc/a.png: cannot be written: "));
}

TEST_F(ZembraView, WhereThereIsNoRoomForAPictureTheOldOneStays) {
    workspace.write("data.csv", "x,y\n1,2\n2,3\n");
    for (const std::string name : {"a.png", "a.svg", "a.pdf"}) {
        workspace.write(name, "good");
        const std::string command = "trap '' XFSZ; ulimit -f 8; exec '" ZEMBRA_VIEW_PROGRAM
                                    "' data.csv --size 2000x1500 --export " +
                                    name;
        const Outcome outcome = start(QStringLiteral("/bin/sh"),
                                      {QStringLiteral("-c"), QString::fromStdString(command)});
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.err, "zembra-view: " + name + ": cannot be written: File too large\n");
        EXPECT_EQ(workspace.read(name), "good");
    }
    EXPECT_EQ(workspace.files(), QStringList({"a.pdf", "a.png", "a.svg", "data.csv"}));
}

// Sanitizers take more room for themselves than any limit would leave.
#ifndef VIEWER_UNDER_SANITIZER
TEST_F(ZembraView, AFileThatTheMemoryDoesNotHoldSaysSoAndExitsWithOne) {
    std::string text = "x,y\n";
    while (text.size() < 10'000'000)
        text += "1.5,2.5\n";
    workspace.write("large.csv", text);
    // Takes no room: the rest of it is a hole.
    std::filesystem::resize_file(workspace.path("large.csv"), 4'000'000'000);
    const Outcome outcome =
        start(QStringLiteral("/bin/sh"),
              {QStringLiteral("-c"), QStringLiteral("ulimit -v 3000000; exec '" ZEMBRA_VIEW_PROGRAM
                                                    "' large.csv --export a.png")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.err, "zembra-view: large.csv: there is not enough memory\n");
    EXPECT_EQ(workspace.files(), QStringList({"large.csv"}));
}
#endif
#endif

TEST_F(ZembraView, NothingFiniteToShowIsStillAPicture) {
    workspace.write("data.csv", "x,y,z\n1,,1\n");
    EXPECT_EQ(run({"data.csv", "--export", "a.png"}).exitCode, 0);
    EXPECT_FALSE(picture("a.png").isNull());
}

} // namespace
} // namespace viewer
