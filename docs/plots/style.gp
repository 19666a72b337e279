# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# Ink on parchment. The lines of a plot differ in colour, dashes and label.
parchment = "#f6ecd2"
ink = "#2b1d12"
wax = "#9c1f1f"
brass = "#8a5f10"
slate = "#3d5a73"
faint = "#d9c9a3"

set terminal pngcairo size 800,430 font "serif,11" background parchment rounded
set datafile separator ","
set border 3 lc rgb ink lw 1
set tics nomirror out textcolor rgb ink
set grid ytics lc rgb faint lw 1 lt 1
set title textcolor rgb ink font ",13" offset 0,-0.4
set xlabel textcolor rgb ink
set ylabel textcolor rgb ink
unset key

set style line 1 lc rgb ink   lw 2.2 dt 1
set style line 2 lc rgb wax   lw 2.2 dt 1
set style line 3 lc rgb brass lw 2.4 dt (12,5)
set style line 4 lc rgb slate lw 2.2 dt (3,4)
set style line 5 lc rgb wax   lw 2.2 dt (12,4,2,4)
