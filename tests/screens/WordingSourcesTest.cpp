#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

QString contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// Every source of the program in one text, texts that go over several lines put together.
QString allSources() {
    QString all;
    for (const char* folder :
         {"core", "platform", "browser", "account", "usage", "app", "screens", "main"}) {
        QDirIterator files(QStringLiteral(BRINMOOR_SOURCES "/") + QString::fromLatin1(folder),
                           {u"*.cpp"_qs, u"*.h"_qs, u"*.qml"_qs}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            all += contents(files.next());
    }
    static const QRegularExpression seam(u"\"\\s*\\n\\s*\""_qs);
    return all.remove(seam);
}

QStringList wordedTexts() {
    QXmlStreamReader reader(
        contents(QStringLiteral(BRINMOOR_SOURCES "/app/wording/brinmoor_linux.ts")));
    QStringList texts;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"source")
            texts.append(reader.readElementText());
    return texts;
}

TEST(LinuxWordingSources, everyTextThatIsPutInOtherWordsIsStillSaid) {
    const QString sources = allSources();
    const QStringList texts = wordedTexts();
    EXPECT_GT(texts.size(), 10);
    for (const QString& text : texts)
        EXPECT_TRUE(sources.contains(u'"' + text + u'"')) << text.toStdString();
}

TEST(LinuxWordingSources, whatIsFalseHereIsPutInOtherWords) {
    static const QRegularExpression worded(
        u"(?:worded|words)\\(\\s*\"([^\"]*(?:Mac\\b|macOS|Finder|Safari|System Settings|⌘|⌥|⇧|⌃)[^\"]*)\""_qs);
    const QStringList texts = wordedTexts();
    auto matches = worded.globalMatch(allSources());
    while (matches.hasNext()) {
        const QString text = matches.next().captured(1);
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    }
}

} // namespace
} // namespace brinmoor
