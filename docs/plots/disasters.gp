# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

set output "disasters.png"
set multiplot layout 1,2 margins 0.07,0.975,0.16,0.9 spacing 0.085
set xlabel "week" offset 0,0.4
set xrange [0:200]
set yrange [0:101]
set ytics 0,20,100
set format y "%.0f%%"
set title "1000 countries in which no slider is moved"
set label "had a famine" at 104,86 textcolor rgb ink
set label "in rebellion" at 104,74 textcolor rgb wax
set label "died out" at 104,62 textcolor rgb slate
set label "had a plague" at 104,38 textcolor rgb brass
set arrow from 102,86 to 49.5,86 nohead lc rgb ink lw 0.7
set arrow from 102,74 to 70,74 nohead lc rgb wax lw 0.7
set arrow from 102,62 to 90.5,62 nohead lc rgb slate lw 0.7
plot "disasters.csv" skip 1 using 1:2 with lines ls 1, \
    "" skip 1 using 1:3 with lines ls 3, \
    "" skip 1 using 1:4 with lines ls 5, \
    "" skip 1 using 1:5 with lines ls 4
unset label
unset arrow
set title "1000 countries with enough food and at peace"
set label "had a plague" at 95,52 right textcolor rgb brass
set label "with 10% doctors none died out" at 8,89 textcolor rgb ink
set label "died out" at 182,16 right textcolor rgb slate
set label "without doctors" at 182,11 right textcolor rgb slate
set label "no famine" at 8,94 textcolor rgb ink
plot "disasters.csv" skip 1 using 1:6 with lines ls 1, \
    "" skip 1 using 1:7 with lines ls 3, \
    "" skip 1 using 1:9 with lines ls 4, \
    "" skip 1 using 1:13 with lines ls 1
unset multiplot
