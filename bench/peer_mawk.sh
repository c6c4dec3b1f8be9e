#!/bin/bash
# The day's work done with mawk and sort, as well as they can do it: peer_mawk.sh rows|check WORK OUT
# rows:  the sheet as it stands after import, auto-fill and summarise, as an entry file in OUT.
#        Equal trades are summed in a hash while they are read, so that only sums are sorted.
# check: the holding check of that entry file, its messages in OUT/holding.txt; one hash on BO ID
#        and ISIN of the holding file.
# The lists are joined by equality, which finds what the program finds because no scrip ID of the
# generated lists contains another. Prints nothing.
set -euo pipefail
export LC_ALL=C
work=$2 out=$3
entries="$out/05-Jan-2010_PI_410275.txt"

rows() {
  # Fields are joined by a byte below all others, so that plain whole-line order is key order.
  # A sum keeps the date of its largest trade, the first one of several.
  mawk '
    file == "trades" {
      if ($4 != "S") next
      key = $7 "|" $2
      if ($5 > most[key]) { most[key] = $5; date[key] = $11 }
      sum[key] += $5
      next
    }
    file == "bo" { sub(/\r$/, "", $4); if (!($4 in boid)) { boid[$4] = $2; name[$4] = $3 } next }
    { if (!($4 in isin)) { isin[$4] = $2; title[$4] = $3 } }
    END {
      for (key in sum) {
        bar = index(key, "|"); client = substr(key, 1, bar - 1); scrip = substr(key, bar + 1)
        printf "%s\001%s\001%s\001%s\001%s\001%s\001%d\001%s\n", boid[client], client, isin[scrip],
          name[client], scrip, title[scrip], sum[key], date[key]
      }
    }' FS="~" file=bo "$work/BO.txt" file=isin "$work/ISIN.txt" \
    FS="|" file=trades "$work/payin_05-01-2010.txt" |
    sort --parallel=2 -S 1G |
    mawk '
      BEGIN {
        FS = "\001"
        split("Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec", month, " ")
        printf "%s", "S/N~Broker ID~Clearing BOID~Trade Date~Delivery Date~Client Code~BO ID~" \
          "BO Name~Scrip ID~ISIN Code~ISIN Name~Quantity~Internal Ref. No."
      }
      {
        if ($1 != account) { account = $1; group++ }
        if ($8 != day) {
          day = $8; split(day, part, "-")
          shown = part[1] "-" month[part[2] + 0] "-" part[3]
          ref = "I410275" part[1] part[2] substr(part[3], 3)
        }
        print "\r"
        printf "%d~410275~7702310000000017~%s~05-Jan-2010~%s~%s~%s~%s~%s~%s~%s~%s%d", NR, shown,
          $2, $1, $4, $5, $3, $6, $7, ref, group
      }
      END { printf "\r" }' >"$entries"
}

check() {
  mawk '
    BEGIN { CONVFMT = "%d" }
    NR == FNR { if (FNR > 8 && !(($1, $2) in balance)) balance[$1, $2] = $NF + 0; next }
    FNR == 1 { next }
    {
      total = $7 == account && $10 == isin ? total + $12 : $12 + 0
      account = $7; isin = $10
      if (!((account, isin) in balance)) printf "%s %s holding balance missing.\r\n", account, isin
      else if (total > balance[account, isin])
        printf "%s %s holding insufficient. Pay In quantity : %d Holding balance : %d\r\n", account,
          isin, total, balance[account, isin]
    }' "$work/11DPA6UX.TXT" FS="~" "$entries" >"$out/holding.txt"
}

"$1"
