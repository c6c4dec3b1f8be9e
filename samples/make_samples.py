#!/usr/bin/env python3
"""Writes the sample folders: an invented broker's settings, lists, trade files and holding files.

Everything is drawn from a fixed seed, so that a second run writes the same bytes. With a folder
as argument the files go there instead of beside this script. All files are Windows-1252 text
with CR LF between lines. People, securities and numbers are made up; the country letters of the
ISIN codes belong to no country.
"""

import pathlib
import random
import sys

BROKER_ID = "410275"
BOID_FORMAT = "7702310000000000"
CLEARING_BOID = "7702310000000017"
DAY = "05-01-2010"
TRADE_DATE = "03-01-2010"
HOLDING_DATE = "04-Jan-2010"

GIVEN = """Amelka Zoë Teodor Ragnhilde José Ineska Bérenice Wendolin Oskarin Lïsa
Petrona Ulvar Mañuela Çelik Dorthea Fabrício Hjördis Kasimira Néstor Solveiga""".split()
FAMILY = """Ostvarren Kelmadine Brünnova Tallivar Marchetault Ødemark Quillaré Sandovirez
Vasterling Péronet Ilmarsen Garrowick Dûbreuvois Norrvåhl Cassimont Žeravik Hollowmere
Estravão Lindemaar Rykovar Füllgrabe""".split()

# Scrip ID and name. No Scrip ID stands inside another, nor inside the caption "Scrip ID": the
# program finds a security by any part of its Scrip ID.
SECURITIES = [
    ("ALDERCEM", "Alder Cement Works Ltd."), ("BALTOIL", "Baltoro Oil and Gas Ltd."),
    ("CEDARBNK", "Cedar Harbour Bank Ltd."), ("DUNETEL", "Dune Telecom Ltd."),
    ("EASTJUTE", "Eastmere Jute Mills Ltd."), ("FERNPHAR", "Fernvale Pharma Ltd."),
    ("GALEPOWR", "Gale Power Generation Ltd."), ("HAVENINS", "Haven General Insurance Ltd."),
    ("IVORYCER", "Ivory Ceramics Ltd."), ("JUNOTEX", "Juno Textiles Ltd."),
    ("KESTRAIR", "Kestrel Airways Ltd."), ("LARCHPAP", "Larchwood Paper Mills Ltd."),
    ("MARELFOO", "Compañía Marel Foods Ltd."), ("NIMBUSIT", "Nimbus Information Systems Ltd."),
    ("ORCHIDHO", "Orchid Hotels and Resorts Ltd."), ("PINESUGR", "Pine Valley Sugar Mills Ltd."),
    ("QUARRYST", "Quarrystone Ltd."), ("RAVENENG", "Raven Engineering Ltd."),
    ("SALTMARI", "Saltholm Marine Ltd."), ("TIDALSHP", "Tidal Shipping Lines Ltd."),
    ("UMBERPNT", "Umber Paints Ltd."), ("VELADAIR", "Vela Dairy Products Ltd."),
    ("WILLOWFN", "Willow Finance and Leasing Ltd."), ("XENONGAS", "Xenon Industrial Gases Ltd."),
    ("YARROWTE", "Yarrow Tea Estates Ltd."), ("ZEPHYRMF", "Zephyr Balanced Mutual Fund"),
    ("ACORNLSG", "Acorn Leasing Ltd."), ("BIRCHBNK", "Birch Commercial Bank Ltd."),
    ("CORALFIS", "Coral Fisheries Ltd."), ("DELTAFRT", "Delta Fertiliser Ltd."),
    ("ELMWOODF", "Elmwood Furniture Ltd."), ("FLINTGLS", "Société Flint Glass Ltd."),
    ("GROVEAGR", "Grove Agro Ltd."), ("HERONBRK", "Heron Bricks and Tiles Ltd."),
    ("ISLETRLW", "Islet Railway Wagons Ltd."), ("JASPERMN", "Jasper Mining Ltd."),
    ("KELPCHEM", "Kelp Chemicals Ltd."), ("LOTUSLIF", "Lotus Life Assurance Ltd."),
    ("MISTRALE", "Mistral Electric Ltd."), ("NORDSTEE", "Nordell Steel Ltd."),
    ("OSPREYBV", "Osprey Beverages Ltd."), ("PEBBLEHS", "Pebble Housing Finance Ltd."),
]
NEW_SECURITIES = [("QUINCEMD", "Quince Medical Ltd."), ("RUSSETLE", "Russet Leather Ltd.")]


def isin(number):
    """A code with the check digit that the standard asks for."""
    body = "QK%09d" % (100210 + number * 37)
    digits = "".join(str(int(c, 36)) for c in body)
    total = sum(sum(divmod(int(d) * (2 if i % 2 == 0 else 1), 10))
                for i, d in enumerate(reversed(digits)))
    return body + str(-total % 10)


def make_accounts(rng):
    """(BO ID, name, client code) of 66 accounts, in the order in which they were opened."""
    names = [given + " " + family for given in GIVEN for family in FAMILY]
    rng.shuffle(names)
    accounts = []
    serial = 10017
    for n, name in enumerate(names[:66]):
        initial = name.split(" ")[1][0]
        client = (initial if initial.isascii() else "X") + "%03d" % (101 + n)
        accounts.append((BOID_FORMAT[:-8] + "%08d" % serial, name, client))
        serial += rng.randrange(3, 90)
    return accounts


def make_securities(entries, first):
    return [(isin(first + n), name, scrip, str(11001 + 4 * (first + n)))
            for n, (scrip, name) in enumerate(entries)]


def make_trades(rng, accounts, securities, count, main_side):
    """Trade lines of one day. Each pair of client and security trades up to five times."""
    pairs = set()
    while len(pairs) < count // 3:
        pairs.add((rng.randrange(len(accounts)), rng.randrange(len(securities))))
    pairs = sorted(pairs)
    other_side = "B" if main_side == "S" else "S"
    trades = []
    for client, security in pairs:
        side = main_side if rng.randrange(10) < 7 else other_side
        for _ in range(rng.randrange(1, 6)):
            trades.append((client, security, side, rng.randrange(1, 60) * rng.choice((5, 10, 50))))
    rng.shuffle(trades)
    lines = []
    for n, (client, security, side, quantity) in enumerate(trades):
        scrip = securities[security][2]
        seconds = 36000 + n * 41
        time = "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60)
        price = "%d.%d0" % (20 + security * 13 + rng.randrange(8), rng.randrange(10))
        lines.append("|".join(("%06d" % (230001 + n), scrip, "A", side, str(quantity), price,
                               accounts[client][2], "D%02d" % (1 + client % 7), time, "N",
                               TRADE_DATE, BROKER_ID)))
    return trades, lines


def make_holdings(rng, accounts, securities, trades, corrected):
    """Lines of the holding report. As first delivered one pair falls short and one is missing."""
    wanted = {}
    for client, security, side, quantity in trades:
        if side == "S":
            wanted[client, security] = wanted.get((client, security), 0) + quantity
    pairs = sorted(wanted)
    short, missing = pairs[len(pairs) // 3], pairs[len(pairs) * 2 // 3]
    balances = {}
    for n, pair in enumerate(pairs):
        # Every fourth account sells all that it holds: just enough is enough.
        balances[pair] = wanted[pair] + (0 if n % 4 == 0 else 10 * rng.randrange(1, 400))
    balances[short] = wanted[short] + (250 if corrected else -15)
    balances[missing] = wanted[missing] + 40
    for _ in range(120):
        pair = (rng.randrange(len(accounts)), rng.randrange(len(securities)))
        balances.setdefault(pair, 10 * rng.randrange(1, 900))
    if not corrected:
        del balances[missing]
    return ["%s %s %s %s %d" % (accounts[c][0], securities[s][0], accounts[c][2],
                                securities[s][1], balances[c, s]) for c, s in sorted(balances)]


def holding_report(lines):
    accounts = len({line.split(" ")[0] for line in lines})
    return ["11DPA6UX Report for Holding Balances of %s : Participant %s"
            % (HOLDING_DATE, BOID_FORMAT[:8]),
            "", "Depository participant %s, broker %s" % (BOID_FORMAT[:8], BROKER_ID),
            "Accounts %d, holdings %d" % (accounts, len(lines)), "",
            "Account ISIN Client Security Balance", "-" * 36, ""] + lines


def write(root, path, lines, end):
    target = root / path
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(("\r\n".join(lines) + end).encode("cp1252"))


def table(captions, rows):
    return ["~".join(captions)] + ["~".join((str(n),) + row) for n, row in enumerate(rows, 1)]


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parent
    rng = random.Random(20100105)
    accounts = make_accounts(rng)
    securities = make_securities(SECURITIES, 0)
    payin, payin_lines = make_trades(rng, accounts, securities, 450, "S")
    _, payout_lines = make_trades(rng, accounts, securities, 420, "B")
    isin_captions = ("S/N", "ISIN Code", "ISIN Name", "Scrip ID", "Scrip Code")

    write(root, "program/Tallyrun.ini",
          ["Broker ID : " + BROKER_ID, "Clearing BOID : " + CLEARING_BOID,
           "Default BOID Format : " + BOID_FORMAT, "Backup Location : @BACKUP_LOCATION@"], "")
    write(root, "work/BO.txt", table(("S/N", "BO ID", "BO Name", "Client Code"), accounts), "\r")
    write(root, "work/ISIN.txt", table(isin_captions, securities), "\r")
    newer = securities + make_securities(NEW_SECURITIES, len(securities))
    write(root, "exchange/entry/ISIN.txt", table(isin_captions, newer), "\r")
    write(root, "import/payin_%s.txt" % DAY, payin_lines, "\r\n")
    write(root, "import/payout_%s.txt" % DAY, payout_lines, "\r\n")
    for folder, corrected in (("import", False), ("import/corrected", True)):
        # The same draws for both, so that they differ only where the first one is wrong.
        lines = make_holdings(random.Random(11), accounts, securities, payin, corrected)
        write(root, folder + "/11DPA6UX.TXT", holding_report(lines), "\r\n")


if __name__ == "__main__":
    main()
