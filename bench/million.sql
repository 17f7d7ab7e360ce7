-- A contact file of 1,000,000 persons in 250,000 companies, with the host's tables and an index on
-- each number column. Numbers as in the large test file: head office 49 and 2000000000 + 10 * AdrID,
-- phone 1 49 and 3000000000 + 10 * DetID.
CREATE TABLE "Adressen" ("AdrID" INTEGER PRIMARY KEY, "Firma1" TEXT, "Ort" TEXT, "RawZentrTel" TEXT);
CREATE TABLE "AdrDetail" ("DetID" INTEGER PRIMARY KEY, "AdrID" INTEGER, "VName" TEXT, "NName" TEXT,
  "RawTel1" TEXT, "RawTel2" TEXT, "RawSekTel" TEXT, "RawHandy" TEXT, "RawHandyprv" TEXT, "RawTelprv" TEXT);
WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM n WHERE i<250000)
INSERT INTO "Adressen" SELECT i, 'Firma ' || i, 'Ort ' || i, '49' || (2000000000 + 10*i) FROM n;
WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM n WHERE i<1000000)
INSERT INTO "AdrDetail" SELECT i, 1 + i % 250000, 'Vorname', 'Name ' || i, '49' || (3000000000 + 10*i),
  '49' || (4000000000 + 10*i), NULL, '49' || (1700000000 + 10*i), NULL, NULL FROM n;
CREATE INDEX z ON "Adressen"("RawZentrTel");
CREATE INDEX a ON "AdrDetail"("AdrID");
CREATE INDEX t1 ON "AdrDetail"("RawTel1");
CREATE INDEX t2 ON "AdrDetail"("RawTel2");
CREATE INDEX ts ON "AdrDetail"("RawSekTel");
CREATE INDEX th ON "AdrDetail"("RawHandy");
CREATE INDEX tp ON "AdrDetail"("RawHandyprv");
CREATE INDEX tq ON "AdrDetail"("RawTelprv");
