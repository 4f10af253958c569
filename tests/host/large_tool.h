// A tool of forty options in five groups, in three languages: what help has to show well.
#ifndef VORN_TESTS_HOST_LARGE_TOOL_H
#define VORN_TESTS_HOST_LARGE_TOOL_H

#include <string>

#include "vorn/host.h"

namespace large_tool {

enum Language { english, german, chinese };

struct Texts {
    const char* in[3];
};

struct Row {
    const char* names;
    Texts metavar;  ///< Null: a flag; "": a switch.
    Texts description;
};

// clang-format off
constexpr Texts about = {"Keeps copies of folders, and gives them back as they were on any day.",
                         "Sichert Ordner und stellt sie so wieder her, wie sie an einem beliebigen Tag waren.",
                         "备份文件夹,并可将其恢复到任意一天的状态。"};
constexpr Texts folderName = {"FOLDER", "ORDNER", "文件夹"};
constexpr Texts folderText = {"What to keep.", "Was gesichert wird.", "要备份的内容。"};
constexpr Texts titles[] = {
    {"What is kept", "Was gesichert wird", "备份内容"},
    {"Where it is kept", "Wohin gesichert wird", "备份位置"},
    {"Compression and encryption", "Komprimierung und Verschlüsselung", "压缩与加密"},
    {"Time and limits", "Zeit und Grenzen", "时间与限制"},
    {"Messages", "Meldungen", "信息输出"}};
constexpr Row rows[] = {
    {"exclude,x", {"PATTERN", "MUSTER", "模式"}, {"Leave out what fits the pattern, folders and all that is in them included.", "Lässt aus, was dem Muster entspricht, Ordner samt Inhalt eingeschlossen.", "排除与模式匹配的内容,包括文件夹及其中的所有文件。"}},
    {"exclude-from", {"FILE", "DATEI", "文件"}, {"Read patterns from a file, one a line.", "Liest Muster aus einer Datei, eines je Zeile.", "从文件中读取模式,每行一个。"}},
    {"max-file-size", {"SIZE", "GRÖSSE", "大小"}, {"Leave out larger files.", "Lässt größere Dateien aus.", "排除超过此大小的文件。"}},
    {"newer-than", {"DATE", "DATUM", "日期"}, {"Leave out what has not changed since.", "Lässt aus, was seither unverändert ist.", "排除此日期之后未更改的内容。"}},
    {"one-file-system", {"", "", ""}, {"Stay on the file system where it begins.", "Bleibt auf dem Dateisystem, auf dem es beginnt.", "不跨越起始所在的文件系统。"}},
    {"follow-links,L", {"", "", ""}, {"Keep what links point to instead of the links.", "Sichert statt der Verknüpfungen, worauf sie zeigen.", "备份链接所指向的内容,而不是链接本身。"}},
    {"hidden-files", {"", "", ""}, {"Keep files whose names begin with a point, too.", "Sichert auch Dateien, deren Namen mit einem Punkt beginnen.", "同时备份名称以点开头的文件。"}},
    {"tag,t", {"WORD", "WORT", "标签"}, {"Words to find this copy by.", "Stichwörter, unter denen sich diese Sicherung wiederfindet.", "用于查找此备份的标签。"}},
    {"repository,r", {"PLACE", "ORT", "位置"}, {"Where copies are kept: a folder, or a host and a folder with a colon between them.", "Wo die Sicherungen liegen: ein Ordner, oder Rechner und Ordner mit einem Doppelpunkt dazwischen.", "备份的存放位置:文件夹,或以冒号分隔的主机与文件夹。"}},
    {"mirror", {"PLACE", "ORT", "位置"}, {"A second place that gets the same.", "Ein zweiter Ort, der dasselbe erhält.", "接收相同内容的第二个位置。"}},
    {"cache-dir", {"DIR", "ORDNER", "目录"}, {"Where what was read is remembered.", "Wo gemerkt wird, was gelesen wurde.", "保存读取记录的目录。"}},
    {"connections", {"N", "N", "数量"}, {"How many at the same time.", "Wie viele gleichzeitig.", "同时建立的连接数。"}},
    {"port,p", {"N", "N", "端口"}, {"Where the host listens.", "Wo der Rechner lauscht.", "主机监听的端口。"}},
    {"identity-file", {"FILE", "DATEI", "文件"}, {"The key that opens the host.", "Der Schlüssel für den Rechner.", "登录主机所用的密钥。"}},
    {"lock-timeout", {"SECONDS", "SEKUNDEN", "秒数"}, {"Give up when somebody else has been writing for so long.", "Gibt auf, wenn so lange schon jemand anderes schreibt.", "当他人写入超过此时间时放弃。"}},
    {"verify-after-writing-everything", {"", "", ""}, {"Read all of it back and compare, which takes as long again.", "Liest alles zurück und vergleicht, was noch einmal so lange dauert.", "重新读取全部内容并进行比较,所需时间加倍。"}},
    {"compression,c", {"METHOD", "VERFAHREN", "方法"}, {"How files are made smaller.", "Wie Dateien verkleinert werden.", "文件的压缩方法。"}},
    {"level", {"N", "N", "级别"}, {"How hard it tries.", "Wie sehr es sich anstrengt.", "压缩的强度。"}},
    {"encrypt,e", {"", "", ""}, {"Nobody reads it without the password.", "Ohne das Kennwort liest es niemand.", "没有密码任何人都无法读取。"}},
    {"password-file", {"FILE", "DATEI", "文件"}, {"The password is its first line.", "Das Kennwort ist ihre erste Zeile.", "密码位于文件的第一行。"}},
    {"key-derivation-iterations", {"N", "ANZAHL", "次数"}, {"More of them make the password harder to guess.", "Mehr davon machen das Kennwort schwerer zu erraten.", "次数越多,密码越难被猜中。"}},
    {"deduplicate", {"", "", ""}, {"Keep equal parts once.", "Bewahrt gleiche Teile nur einmal auf.", "相同的部分只保存一次。"}},
    {"chunk-size", {"SIZE", "GRÖSSE", "大小"}, {"How large parts are.", "Wie groß die Teile sind.", "每个部分的大小。"}},
    {"checksum", {"METHOD", "VERFAHREN", "方法"}, {"What tells parts apart.", "Was Teile unterscheidet.", "区分各个部分的校验方法。"}},
    {"keep-daily", {"N", "N", "数量"}, {"How many days back there is one copy a day.", "Für wie viele Tage es eine Sicherung je Tag gibt.", "保留每日备份的天数。"}},
    {"keep-weekly", {"N", "N", "数量"}, {"The same for weeks.", "Dasselbe für Wochen.", "保留每周备份的周数。"}},
    {"keep-monthly", {"N", "N", "数量"}, {"The same for months.", "Dasselbe für Monate.", "保留每月备份的月数。"}},
    {"limit-upload", {"RATE", "RATE", "速率"}, {"Send no more in a second.", "Sendet je Sekunde nicht mehr.", "每秒上传的上限。"}},
    {"limit-download", {"RATE", "RATE", "速率"}, {"Fetch no more in a second.", "Holt je Sekunde nicht mehr.", "每秒下载的上限。"}},
    {"jobs,j", {"N", "N", "数量"}, {"How many files are read at the same time.", "Wie viele Dateien gleichzeitig gelesen werden.", "同时读取的文件数。"}},
    {"stop-after", {"DURATION", "DAUER", "时长"}, {"Stop then; the next run goes on from there.", "Hört dann auf; der nächste Lauf macht dort weiter.", "到时停止;下次运行将从该处继续。"}},
    {"nice", {"N", "N", "数值"}, {"How much to let others go first.", "Wie sehr anderen der Vortritt gelassen wird.", "让其他程序优先的程度。"}},
    {"verbose,v", {nullptr, nullptr, nullptr}, {"Say what is done; twice says more.", "Sagt, was geschieht; zweimal sagt mehr.", "显示正在执行的操作;重复两次则更详细。"}},
    {"quiet,q", {"", "", ""}, {"Say nothing but what is wrong.", "Sagt nur, was falsch ist.", "只显示错误。"}},
    {"progress", {"", "", ""}, {"Show how far it is.", "Zeigt, wie weit es ist.", "显示进度。"}},
    {"colour", {"WHEN", "WANN", "时机"}, {"When to use colours.", "Wann Farben benutzt werden.", "何时使用颜色。"}},
    {"log-file", {"FILE", "DATEI", "文件"}, {"Write all messages there, too.", "Schreibt alle Meldungen auch dorthin.", "同时将所有信息写入此文件。"}},
    {"log-level", {"LEVEL", "STUFE", "级别"}, {"What is worth a message.", "Was eine Meldung wert ist.", "值得记录的信息级别。"}},
    {"mail-to", {"ADDRESS", "ADRESSE", "地址"}, {"Send a report there.", "Sendet einen Bericht dorthin.", "将报告发送至此地址。"}},
    {"dry-run,n", {nullptr, nullptr, nullptr}, {"Show what would be done.", "Zeigt, was getan würde.", "只显示将要执行的操作。"}}};
// clang-format on

inline vorn::host::Parser make(Language language) {
    vorn::host::Parser parser("safe", about.in[language]);
    parser.version("2.1");
    (void)parser.addPositional<std::string>("folder", folderText.in[language])
        .metavar(folderName.in[language])
        .atLeast(1);
    unsigned count = 0;
    for (const Row& row : rows) {
        const char* title = titles[count++ / 8].in[language];
        const char* metavar = row.metavar.in[language];
        const char* text = row.description.in[language];
        const std::string name = row.names;
        if (metavar == nullptr) {
            parser.addCount(row.names, text).group(title);
            continue;
        }
        if (*metavar == '\0') {
            (void)parser.addSwitch(row.names, text).group(title).defaultTo(name == "deduplicate");
            continue;
        }
        if (name == "jobs,j" || name == "level") {
            const auto number = parser.add<int>(row.names, text).group(title).metavar(metavar).range(1, 19);
            (void)number.defaultTo(4).environment(name == "level" ? "SAFE_LEVEL" : "SAFE_JOBS");
            continue;
        }
        const auto option = parser.add<std::string>(row.names, text).group(title).metavar(metavar);
        if (name == "compression,c" || name == "log-level")
            (void)option.defaultTo("fast").allow("none", "fast", "best", "archive",
                                                 "everything-that-is-known", "whatever-is-there");
        if (name == "exclude,x" || name == "tag,t") (void)option.list(',');
        if (name == "colour") option.implicit("auto");
        if (name == "repository,r") (void)option.required();
    }
    return parser;
}

}  // namespace large_tool

#endif
