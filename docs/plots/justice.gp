# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

set output "justice.png"
set multiplot layout 1,2 margins 0.07,0.975,0.16,0.9 spacing 0.085
set yrange [0:1]
set xlabel "week" offset 0,0.4
set xrange [0:200]
set title "Median crime of 100 countries"
set label "justice 0.40" at 198,0.9 right textcolor rgb ink
set label "0.50" at 198,0.645 right textcolor rgb wax
set label "0.65" at 168,0.645 right textcolor rgb slate
set label "0.56" at 198,0.55 right textcolor rgb brass
set label "0.80" at 198,0.39 right textcolor rgb wax
plot for [i=1:5] "crime.csv" skip 1 using 1:(column(i+1)) with lines ls i
unset label
set xlabel "level of justice"
set xrange [0:1]
set title "Means of 1000 countries after 200 weeks"
set label "crime" at 0.05,0.88  textcolor rgb ink
set label "morale" at 0.6,0.41 center textcolor rgb brass
set label "share in rebellion" at 0.05,0.96  textcolor rgb wax
plot "justice.csv" skip 1 using 1:2 with lines ls 1, \
    "" skip 1 using 1:3 with lines ls 3, \
    "" skip 1 using 1:4 with lines ls 5
unset multiplot
