#!/bin/bash
# The day's work done with sqlite3, as well as it can do it: peer_sqlite.sh rows|check WORK OUT
# Makes the same files as peer_mawk.sh. The tables lie in memory and have no more indexes than the
# joins use, made after the tables are filled; trades are grouped before they are joined. Prints
# nothing.
set -euo pipefail
work=$2 out=$3
entries="$out/05-Jan-2010_PI_410275.txt"

# A database in memory, filled and asked by the commands on the input.
run() {
  { echo 'PRAGMA journal_mode = OFF; PRAGMA temp_store = MEMORY; PRAGMA threads = 2;'
    echo 'PRAGMA locking_mode = EXCLUSIVE; PRAGMA cache_size = -2000000;'
    cat; } | sqlite3 -batch :memory: >/dev/null
}

rows() {
  run <<SQL
CREATE TABLE bo(serial, boid TEXT, name TEXT, client TEXT);
CREATE TABLE isin(serial, isin TEXT, title TEXT, scrip TEXT, code);
CREATE TABLE trade(number, scrip TEXT, board, side TEXT, quantity INTEGER, price, client TEXT,
                   dealer, time, flag, day TEXT, broker);
.mode ascii
.separator ~ "\n"
.import --skip 1 '$work/BO.txt' bo
.import --skip 1 '$work/ISIN.txt' isin
.separator | "\n"
.import '$work/payin_05-01-2010.txt' trade
UPDATE bo SET client = rtrim(client, char(13)) WHERE client LIKE '%' || char(13);
CREATE INDEX client ON bo(client);
CREATE INDEX scrip ON isin(scrip);
.mode list
.headers off
.separator ~ "\r\n"
.output '$entries'
SELECT 'S/N', 'Broker ID', 'Clearing BOID', 'Trade Date', 'Delivery Date', 'Client Code', 'BO ID',
       'BO Name', 'Scrip ID', 'ISIN Code', 'ISIN Name', 'Quantity', 'Internal Ref. No.';
-- Beside max() the other columns come from the row that has it: the date of the largest trade.
WITH total AS (
  SELECT client, scrip, sum(quantity) AS quantity, max(quantity), day
  FROM trade WHERE side = 'S' GROUP BY client, scrip
), sheet AS (
  SELECT boid, total.client, name, total.scrip, isin, title, quantity, day,
         row_number() OVER place AS number, dense_rank() OVER account AS account
  FROM total JOIN bo USING (client) JOIN isin USING (scrip)
  WINDOW account AS (ORDER BY boid), place AS (ORDER BY boid, total.client, isin)
)
SELECT number, '410275', '7702310000000017',
       substr(day, 1, 3) ||
         substr('JanFebMarAprMayJunJulAugSepOctNovDec', substr(day, 4, 2) * 3 - 2, 3) ||
         substr(day, 6),
       '05-Jan-2010', client, boid, name, scrip, isin, title, quantity,
       'I410275' || substr(day, 1, 2) || substr(day, 4, 2) || substr(day, 9) || account
FROM sheet ORDER BY number;
SQL
  truncate -s -1 "$entries"
}

check() {
  # The holding file has as many blanks in a line as the security's name has: the line is kept
  # whole and cut by place and by its last blank.
  run <<SQL
CREATE TABLE line(text TEXT);
CREATE TABLE sheet(serial, broker, clearing, tradeDay, deliveryDay, client, boid TEXT, name, scrip,
                   isin TEXT, title, quantity INTEGER, ref);
.mode ascii
.separator ~ "\n"
.import --skip 8 '$work/11DPA6UX.TXT' line
.import --skip 1 '$entries' sheet
CREATE TABLE holding AS
  SELECT substr(text, 1, 29) AS key,
         CAST(substr(text, length(rtrim(text, '0123456789' || char(13)))) AS INTEGER) AS balance
  FROM line;
CREATE INDEX key ON holding(key);
.mode list
.headers off
.separator ~ "\r\n"
.output '$out/holding.txt'
SELECT boid || ' ' || isin || CASE WHEN balance IS NULL THEN ' holding balance missing.'
         ELSE ' holding insufficient. Pay In quantity : ' || quantity ||
              ' Holding balance : ' || balance END
FROM (SELECT serial, boid, isin, quantity,
             (SELECT balance FROM holding WHERE key = boid || ' ' || isin
              ORDER BY holding.rowid LIMIT 1) AS balance
      FROM sheet)
WHERE balance IS NULL OR quantity > balance
ORDER BY serial + 0;
SQL
}

"$1"
