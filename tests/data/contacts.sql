-- The content of the Jet file CONTACT.FDB, for the other engines. Quoted names keep their letter
-- case everywhere.
CREATE TABLE "Adressen" ("AdrID" INTEGER, "Firma1" VARCHAR(160), "Ort" VARCHAR(80), "RawZentrTel" VARCHAR(40));
CREATE TABLE "AdrDetail" ("AdrID" INTEGER, "DetID" INTEGER, "VName" VARCHAR(60), "NName" VARCHAR(80),
  "RawTel1" VARCHAR(40), "RawTel2" VARCHAR(40), "RawSekTel" VARCHAR(40), "RawHandy" VARCHAR(40),
  "RawHandyprv" VARCHAR(40), "RawTelprv" VARCHAR(40));
CREATE TABLE "Benutzer" ("ID" INTEGER, "VName" VARCHAR(60), "NName" VARCHAR(80), "AbtID" INTEGER,
  "Durchwahl" VARCHAR(20));
CREATE TABLE "Grp_Abt" ("ID" INTEGER NOT NULL UNIQUE, "Bez" VARCHAR(80));
INSERT INTO "Adressen" ("AdrID", "Firma1", "Ort", "RawZentrTel") VALUES
 (1, 'Havelwerk Maschinenbau GmbH', 'Berlin', '4930123450'),
 (2, 'Muster GmbH', 'Frankfurt', '49697654320'),
 (3, 'Rheinkontor Spedition AG', 'Düsseldorf', '49211445560'),
 (4, 'Müller & Söhne Großhandel KG', 'Köln', '49221998870'),
 (5, 'Bäcker''s Landbrot', 'Weiden in der Oberpfalz', '4996112340'),
 (6, 'Nordlicht Elektrotechnik eG', 'Flensburg', '49461556670'),
 (7, 'Alpenblick Hotelbetriebe GmbH', 'Garmisch-Partenkirchen', '498821334450'),
 (8, 'Wiener Papierfabrik Ges.m.b.H.', 'Wien', '4315550000'),
 (9, 'Zürisee Treuhand AG', 'Zürich', '41445550100'),
 (10, NULL, 'Leipzig', '49341778890'),
 (11, 'Ohne Ort Consulting', NULL, '4940667700'),
 (12, 'Zentrale ohne Personen GmbH', 'Hannover', '49511223340'),
 (13, 'Verwaltungsgemeinschaft der vereinigten mitteldeutschen Kommunalversorgungsbetriebe und Zweckverbände Anstalt des öffentlichen Rechts', 'Halle (Saale)', '49345111220'),
 (14, 'Seltene Erden "Saxonia" GmbH', 'Freiberg', '493731445500'),
 (15, 'Čapek & Łukasz Übersetzungen', 'Görlitz', '493581667780');
INSERT INTO "AdrDetail" ("AdrID", "DetID", "VName", "NName", "RawTel1", "RawTel2", "RawSekTel", "RawHandy", "RawHandyprv", "RawTelprv") VALUES
 (1, 101, 'Katharina', 'Lindner', '4930123456', NULL, '4930123451', '491711112223', NULL, '4930998877'),
 (1, 102, 'Thomas', 'Wagner', '4930123457', '4930123458', NULL, '491722223334', NULL, NULL),
 (1, 103, NULL, 'Einkauf', '4930123459', NULL, NULL, NULL, NULL, NULL),
 (2, 201, 'Hans', 'Meier', '0697654321', NULL, NULL, '491603334445', NULL, NULL),
 (2, 202, 'Sabine', 'Vogt', '49697654322', NULL, NULL, NULL, NULL, NULL),
 (3, 301, 'Jürgen', 'Özdemir', '49211445566', NULL, NULL, NULL, NULL, NULL),
 (3, 302, 'Anke', 'Peters', '49211445566', NULL, NULL, NULL, NULL, NULL),
 (4, 401, 'Wolfgang', 'Müller', '49221998871', '49221998872', '49221998871', '491754445556', '491755556667', '49221112233'),
 (5, 501, 'Siobhán', 'O''Brien', '4996112341', NULL, NULL, NULL, NULL, NULL),
 (6, 601, 'Finn', 'Petersen', '49461556671', NULL, NULL, '491785556667', NULL, NULL),
 (7, 701, 'Maria', 'Huber', '498821334451', NULL, NULL, NULL, NULL, NULL),
 (8, 801, 'Franz', 'Novak', '4315550001', NULL, NULL, '436641234567', NULL, NULL),
 (9, 901, 'Reto', 'Ammann', '41445550101', NULL, NULL, NULL, NULL, NULL),
 (10, 1001, 'Uwe', 'Krause', '49341778891', NULL, NULL, NULL, NULL, NULL),
 (11, 1101, NULL, 'Schmidt', '4940667701', NULL, NULL, NULL, NULL, NULL),
 (13, 1301, 'Dr. Annegret Hildegard Wilhelmine', 'von der Heydt-Rittershausen-Waldburg', '49345111221', NULL, NULL, NULL, NULL, NULL),
 (14, 1401, 'Ines', 'Böhme', '493731445501', NULL, NULL, NULL, NULL, NULL),
 (15, 1501, 'Zdeněk', 'Čapek', '493581667781', NULL, NULL, NULL, NULL, NULL);
INSERT INTO "Benutzer" ("ID", "VName", "NName", "AbtID", "Durchwahl") VALUES
 (17, 'Petra', 'Sommer', 1, '217'),
 (18, 'Jonas', 'Brandt', 2, '218'),
 (19, NULL, 'Empfang', 4, '100'),
 (20, 'Lukas', NULL, 3, '301'),
 (21, 'Mia', 'Keller', 5, '12'),
 (22, 'Ohne', 'Abteilung', 99, '44');
INSERT INTO "Grp_Abt" ("ID", "Bez") VALUES
 (1, 'Vertrieb'),
 (2, 'Einkauf'),
 (3, 'Buchhaltung'),
 (4, 'Geschäftsführung'),
 (5, NULL);
