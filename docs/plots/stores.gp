# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

set output "stores.png"
set multiplot layout 1,2 margins 0.07,0.975,0.265,0.9 spacing 0.085
set xlabel "week" offset 0,0.5
set xrange [0:200]
set xtics 0,50,200
set label "A  25% farmers, 50% butchers, set once" at screen 0.035,0.085 textcolor rgb ink
set label "B  27%, 54%, set once" at screen 0.45,0.085 textcolor rgb wax
set label "C  25%, 51%, set weekly" at screen 0.71,0.085 textcolor rgb brass
set label "D  15%, 30%, set weekly, lean rations" at screen 0.035,0.035 textcolor rgb slate
set label "E  25%, 50%, set weekly, lean rations" at screen 0.45,0.035 textcolor rgb wax
set title "Grain, in thousand units"
set yrange [0:150]
set label "A" at 91,36  textcolor rgb ink
set label "B" at 185,53  textcolor rgb wax
set label "C" at 185,29  textcolor rgb brass
set label "D" at 185,86  textcolor rgb slate
set label "E" at 19,136 right textcolor rgb wax
plot for [i=1:5] "stores.csv" skip 1 using 1:(column(i+1)) with lines ls i
unset label
set title "Herd, in thousand heads"
set yrange [0:60]
set label "A" at 43,8  textcolor rgb ink
set label "B" at 102,35.5  textcolor rgb wax
set label "C" at 187,33  textcolor rgb brass
set label "D" at 185,45  textcolor rgb slate
set label "E" at 8,3.5  textcolor rgb wax
plot for [i=1:5] "stores.csv" skip 1 using 1:(column(i+6)) with lines ls i
unset multiplot
