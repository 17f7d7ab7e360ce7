#include "contact_schema.h"

#include "sqlite_script.h"

namespace orvane {
namespace {

constexpr const char* kTables = R"sql(
CREATE TABLE Adressen (AdrID INTEGER PRIMARY KEY, Firma1 TEXT, Ort TEXT, RawZentrTel TEXT) STRICT;
CREATE TABLE AdrDetail (DetID INTEGER PRIMARY KEY, AdrID INTEGER, VName TEXT, NName TEXT,
  RawTel1 TEXT, RawTel2 TEXT, RawSekTel TEXT, RawHandy TEXT, RawHandyprv TEXT, RawTelprv TEXT)
  STRICT;
CREATE TABLE Benutzer (ID INTEGER PRIMARY KEY, VName TEXT, NName TEXT, AbtID INTEGER,
  Durchwahl TEXT) STRICT;
CREATE TABLE Grp_Abt (ID INTEGER PRIMARY KEY, Bez TEXT) STRICT;
CREATE INDEX Adressen_RawZentrTel ON Adressen (RawZentrTel);
CREATE INDEX AdrDetail_AdrID ON AdrDetail (AdrID);
CREATE INDEX AdrDetail_RawTel1 ON AdrDetail (RawTel1);
CREATE INDEX AdrDetail_RawTel2 ON AdrDetail (RawTel2);
CREATE INDEX AdrDetail_RawSekTel ON AdrDetail (RawSekTel);
CREATE INDEX AdrDetail_RawHandy ON AdrDetail (RawHandy);
CREATE INDEX AdrDetail_RawHandyprv ON AdrDetail (RawHandyprv);
CREATE INDEX AdrDetail_RawTelprv ON AdrDetail (RawTelprv);
CREATE INDEX Benutzer_Durchwahl ON Benutzer (Durchwahl);
)sql";

constexpr const char* kAddresses = R"sql(
INSERT INTO Adressen (AdrID, Firma1, Ort, RawZentrTel) VALUES
 (1, 'Havelwerk Maschinenbau GmbH', 'Berlin', '4930123400'),
 (2, 'Rheinkontor Spedition AG', 'Düsseldorf', '4921144550'),
 (3, 'Elbufer Druckerei KG', 'Hamburg', '4940556600'),
 (4, 'Isartal Feinmechanik GmbH', 'München', '4989667700'),
 (5, 'Kölner Bäckerei D''Amico', 'Köln', '4922177880'),
 (6, 'Saaletal Obsthof eG', 'Halle (Saale)', '49345112200'),
 (7, 'Nordlicht Schiffsbedarf GmbH & Co. KG', 'Kiel', '49431223300'),
 (8, 'Weserbogen Möbelwerke GmbH', 'Minden', '49571334400'),
 (9, 'Schwarzwälder Uhrenmanufaktur Faller', 'Furtwangen', '497723445500'),
 (10, NULL, 'München', '4989334450'),
 (11, 'Wanderservice Immergrün', NULL, '4940889900'),
 (12, 'Mainufer Treuhand GmbH', 'Frankfurt', '496987654300'),
 (13, 'Gesellschaft für die Planung, Errichtung und Instandhaltung von Gewächshäusern und'
   || ' Bewässerungsanlagen in Sachsen mbH', 'Dresden', '4935145670'),
 (14, 'Verlag "Die kleine Leseratte"', 'Stuttgart', '4971198760'),
 (15, 'Domplatz Optik Hartmann', 'Mainz', '49613122330');
)sql";

constexpr const char* kPersons = R"sql(
INSERT INTO AdrDetail (DetID, AdrID, VName, NName, RawTel1, RawTel2, RawSekTel, RawHandy,
  RawHandyprv, RawTelprv) VALUES
 (101, 1, 'Katharina', 'Lindner', '4930123456', NULL, '4930123450', '491701234567', NULL, NULL),
 (102, 1, 'Matthias', 'Voss', '4930123457', NULL, '4930123450', NULL, '491609876543', NULL),
 (103, 2, 'Sabine', 'Reuter', '49211445566', NULL, NULL, '491712223344', NULL, NULL),
 (104, 2, 'Torsten', 'Klaas', '49211445566', '49211445567', NULL, NULL, NULL, NULL),
 (105, 3, 'Ulrike', 'Petersen', '4940556611', NULL, NULL, NULL, NULL, '494055667788'),
 (106, 4, 'Alois', 'Gruber', '4989667712', '4989667713', NULL, '491755556666', NULL, NULL),
 (107, 4, NULL, 'Zentrallager', '4989667790', NULL, NULL, NULL, NULL, NULL),
 (108, 5, 'Giulia', 'D''Amico', '49221778899', NULL, NULL, NULL, NULL, NULL),
 (109, 6, 'Frank', 'Obermüller', '49345112233', NULL, NULL, '491523334455', NULL, NULL),
 (110, 7, 'Inken', 'Thomsen', '49431223344', NULL, '49431223340', NULL, NULL, NULL),
 (111, 8, 'Jürgen', 'Straßmann', '49571334455', NULL, NULL, NULL, NULL, NULL),
 (112, 8, 'Heike', 'Wöhler', '49571334466', NULL, NULL, NULL, '491784445566', NULL),
 (113, 9, 'Benedikt', 'Faller', '497723445566', NULL, NULL, NULL, NULL, '497723998877'),
 (114, 10, 'Ruth', 'Albers', '49893344550', NULL, NULL, NULL, NULL, NULL),
 (115, 11, 'Nils', 'Immergrün', '494088990012', NULL, NULL, '491798887766', NULL, NULL),
 (116, 13, 'Petra', 'Zschoche', '493514567890', NULL, NULL, NULL, NULL, NULL),
 (117, 14, 'Hanno', 'Wieland', '497119876540', NULL, NULL, NULL, NULL, NULL),
 (401, 15, 'Clara', 'Hartmann', '496131223344', '496131223344', NULL, NULL, NULL, NULL);
)sql";

constexpr const char* kUsers = R"sql(
INSERT INTO Grp_Abt (ID, Bez) VALUES
 (1, 'Einkauf'), (2, 'Vertrieb'), (3, 'Empfang'), (4, 'Werkstatt'), (5, NULL);
INSERT INTO Benutzer (ID, VName, NName, AbtID, Durchwahl) VALUES
 (1, 'Jonas', 'Brandt', 1, '217'),
 (2, 'Meike', 'Sommer', 2, '218'),
 (3, NULL, 'Empfang', 3, '100'),
 (4, 'Ralf', NULL, 4, '301'),
 (5, 'Dorothea', 'Kühn', 5, '12'),
 (6, 'Emil', 'Winter', 99, '44');
)sql";

}  // namespace

void CreateContactFile(const std::filesystem::path& file) {
  SqliteScript script(file);
  script.Run(kTables);
  script.Finish();
}

void CreateDemoContactFile(const std::filesystem::path& file) {
  SqliteScript script(file);
  for (const char* const part : {kTables, kAddresses, kPersons, kUsers}) script.Run(part);
  script.Finish();
}

}  // namespace orvane
