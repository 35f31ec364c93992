// The translation of the message catalogues; the process runs under a German locale.

#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <fstream>
#include <string>

#include "KEPMfgPPTableTxt.h"
#include "System/KEPError.h"
#include "host/system/MessageCatalogue.h"
#include "inspect/diagnostics/TableErrorPlace.h"
#include "inspect/diagnostics/TableFile.h"
#include "tests/support/InputFile.h"

namespace {

std::string german(std::string_view key) {
  return std::string(host::messageText("ManufacturingError", key, {}).View());
}

// The message keys that a translation holds, in its order.
std::vector<std::string> translatedKeys(const std::string& catalogue) {
  std::ifstream file(std::string(PPWORD_SOURCE_DIR) + "/host/messages/de/" + catalogue + ".po");
  std::vector<std::string> keys;
  for (std::string line; std::getline(file, line);) {
    const std::string opening = "msgid \"";
    if (!line.starts_with(opening) || line == opening + '"') continue;
    keys.push_back(line.substr(opening.size(), line.size() - opening.size() - 1));
  }
  return keys;
}

std::vector<std::string> englishKeys(const std::string& catalogue) {
  const auto keys = host::messageKeys(catalogue);
  return {keys.begin(), keys.end()};
}

TEST(GermanMessages, CatalogueOfTablesHoldsTheSameThirteenKeysInBothLanguages) {
  const std::vector<std::string> keys = {"ERR_5000", "ERR_5001", "ERR_5002", "ERR_5003", "ERR_5004",
                                         "ERR_5005", "ERR_5006", "ERR_5007", "ERR_5008", "ERR_5009",
                                         "ERR_5010", "ERR_5011", "ERR_5015"};
  EXPECT_EQ(englishKeys("ManufacturingError"), keys);
  EXPECT_EQ(translatedKeys("ManufacturingError"), keys);
}

TEST(GermanMessages, CatalogueOfTheSystemHoldsTheSameKeysInBothLanguages) {
  EXPECT_EQ(englishKeys("System"), translatedKeys("System"));
  EXPECT_EQ(englishKeys("Unknown"), std::vector<std::string>{});
}

TEST(GermanMessages, EveryKeyHasItsText) {
  EXPECT_EQ(german("ERR_5000"),
            "*INSERT nennt keine NC-Instruktion; schreiben Sie \"*INSERT NC_NAME\"");
  EXPECT_EQ(german("ERR_5001"),
            "eine Zeile, die mit \"*\" beginnt, muss eine *START_..., *END- oder *INSERT-Zeile "
            "sein");
  EXPECT_EQ(german("ERR_5002"),
            "mehr *END-Zeilen als *START-Zeilen; entfernen Sie das *END, das nichts schließt");
  EXPECT_EQ(german("ERR_5003"),
            "weniger *END-Zeilen als *START-Zeilen; schließen Sie jeden Block mit *END");
  EXPECT_EQ(german("ERR_5004"),
            "*START_NC_COMMAND nennt kein Kommando; schreiben Sie \"*START_NC_COMMAND NC_NAME\"");
  EXPECT_EQ(german("ERR_5005"),
            "*START_NC_INSTRUCTION nennt keine Instruktion; schreiben Sie "
            "\"*START_NC_INSTRUCTION NC_NAME\"");
  EXPECT_EQ(german("ERR_5006"),
            "*START_LIST nennt keinen Parameter; schreiben Sie \"*START_LIST MFG_NAME\"");
  EXPECT_EQ(german("ERR_5007"),
            "*START_FORMAT nennt keinen Parameter; schreiben Sie \"*START_FORMAT MFG_NAME\"");
  EXPECT_EQ(german("ERR_5008"),
            "so beginnt kein Block; prüfen Sie die Schreibweise des *START_-Schlüsselworts");
  EXPECT_EQ(german("ERR_5009"),
            "die PP-Wort-Tabelle lässt sich nicht öffnen; prüfen Sie Pfad und Zugriffsrechte");
  EXPECT_EQ(german("ERR_5010"),
            "die Ressource der Aufspannung nennt keine PP-Wort-Tabelle; tragen Sie dort den Namen "
            "einer Tabellendatei ein");
  EXPECT_EQ(german("ERR_5011"),
            "die Aufspannung des Programms hat keine Ressource; weisen Sie ihr eine Maschine zu");
  EXPECT_EQ(german("ERR_5015"),
            "die PP-Wort-Tabelle, die die Ressource des Programms nennt, liegt in keinem der "
            "PPTables-Ordner; legen Sie die Datei dort ab oder berichtigen Sie den Namen, Groß- "
            "und Kleinschreibung zählt");
}

TEST(GermanMessages, ParametersStandInTheirPlaces) {
  KEPError error("ERR_5008", "ManufacturingError");
  const KEPUnicodeString line = "12";
  error.SetNLSParameters(1, &line);
  EXPECT_EQ(error.GetNLSMessage().View(),
            "Zeile 12: so beginnt kein Block; prüfen Sie die Schreibweise des "
            "*START_-Schlüsselworts");
  EXPECT_EQ(KEPErrorPositionOutOfList(4, 3).GetNLSMessage().View(),
            "Position 4 liegt außerhalb einer Liste von 3 Einträgen");
  EXPECT_EQ(KEPErrorNullHandle().GetNLSMessage().View(), "ein leerer Verweis wurde benutzt");
}

TEST(GermanMessages, UnknownKeyIsItsOwnText) { EXPECT_EQ(german("ERR_1"), "ERR_1"); }

TEST(GermanMessages, HintsOfTheTableCheckAreGermanToo) {
  const auto messageOf = [](std::string_view table) {
    const InputFile file(table);
    KEPMfgPPTableTxt reader{KEPString(file.path())};
    EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL);
    return host::tableError(file.path(), *KEPError::KEPGetLastError()).message;
  };
  EXPECT_EQ(messageOf("*START_LISTE MFG_A\n*START_LIST\tMFG_B\n"),
            "*START_LIST nennt keinen Parameter; schreiben Sie \"*START_LIST MFG_NAME\"; vor dem "
            "Namen muss ein Leerzeichen stehen, kein Tabulator");
  EXPECT_EQ(messageOf("*START_FROMAT MFG_A\n"),
            "so beginnt kein Block; prüfen Sie die Schreibweise des *START_-Schlüsselworts; "
            "meinten Sie *START_FORMAT?");
  EXPECT_EQ(messageOf("*START_SYNTAXES\nRAPID\n"),
            "weniger *END-Zeilen als *START-Zeilen; schließen Sie jeden Block mit *END "
            "(gezählt bis Zeile 2, dem Ende der Tabelle)");
}

TEST(GermanMessages, ReasonsOfTheSystemAreGermanToo) {
  constexpr std::string_view kOpening = "die PP-Wort-Tabelle lässt sich nicht öffnen: ";
  const auto reasonOf = [&](const host::Diagnostic& unreadable) {
    EXPECT_TRUE(unreadable.message.starts_with(kOpening)) << unreadable.message;
    return unreadable.message.substr(kOpening.size());
  };
  EXPECT_EQ(reasonOf(*host::unreadableTable("/")), "sie ist ein Verzeichnis");
  EXPECT_EQ(reasonOf(*host::unreadableTable("/dev/null")), "sie ist keine gewöhnliche Datei");
  EXPECT_EQ(reasonOf(*host::unreadableTable("/absent")), "Datei oder Verzeichnis nicht gefunden");
  const InputFile file("text");
  const auto reasonFor = [&](int error) {
    return reasonOf(host::unreadableTable(file.path(), error));
  };
  EXPECT_EQ(reasonFor(EIO), "Ein-/Ausgabefehler");
  EXPECT_EQ(reasonFor(EMFILE), "zu viele offene Dateien");
  EXPECT_EQ(reasonFor(EDOM), "Systemfehler 33");
  EXPECT_EQ(reasonFor(0), "sie ändert sich, während sie gelesen wird");
}

TEST(GermanMessages, LanguageIsThatOfTheMoment) {
  const std::string before = std::setlocale(LC_MESSAGES, nullptr);
  std::setlocale(LC_MESSAGES, "C");
  EXPECT_EQ(german("ERR_5011"), "the program's setup has no resource; assign a machine to it");
  std::setlocale(LC_MESSAGES, before.c_str());
  EXPECT_EQ(german("ERR_5011"),
            "die Aufspannung des Programms hat keine Ressource; weisen Sie ihr eine Maschine zu");
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
