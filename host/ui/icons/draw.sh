#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Draws the icons of the wizard (ImageMagick). Run in this folder after changing a drawing; the pictures are committed.
set -euo pipefail
draw() {
    local name=$1
    shift
    convert -size 64x64 xc:none -stroke '#304860' -strokewidth 4 -fill '#8fb4d8' "$@" -filter Lanczos -resize 16x16 \
        -strip "PNG32:$name.png"
}
draw polygon -draw 'polygon 8,46 18,10 52,16 56,50 30,58'
draw well -fill none -draw 'line 20,6 20,30' -draw 'path "M 20,30 Q 22,52 54,56"' -fill '#c04030' -draw 'circle 20,8 20,14'
draw image -draw 'rectangle 6,10 58,54' -fill '#70a050' -draw 'polygon 10,50 26,28 38,42 46,34 54,50' -fill '#f0c040' -draw 'circle 44,22 44,27'
draw gridSurface -draw 'polygon 4,40 24,14 60,22 42,52' -fill none -draw 'line 14,27 51,37' -draw 'line 23,46 42,18'
draw trimesh -draw 'polygon 6,52 30,8 58,46' -fill none -draw 'line 18,30 44,27' -draw 'line 18,30 32,49' -draw 'line 44,27 32,49'
draw geocell_small -draw 'polygon 8,22 32,8 56,22 32,36' -fill '#6d93ba' -draw 'polygon 8,22 32,36 32,60 8,46' -fill '#50749a' -draw 'polygon 56,22 32,36 32,60 56,46'
draw iconobject_insertpin -fill '#c04030' -draw 'circle 32,20 32,34' -fill none -draw 'line 32,34 32,60'
draw iconobject_insertline -fill none -draw 'polyline 6,54 22,22 40,40 58,8'
draw iconobject_insertpost -draw 'rectangle 26,26 38,60' -fill '#c04030' -draw 'polygon 14,26 32,4 50,26'
draw iconobject_inserttext -fill none -strokewidth 7 -draw 'line 10,12 54,12' -draw 'line 32,12 32,56'
draw iconobject_insertpoint -fill '#c04030' -draw 'circle 16,18 16,26' -draw 'circle 46,26 46,34' -draw 'circle 26,48 26,56'
draw arrow_left -draw 'polygon 8,32 34,8 34,22 56,22 56,42 34,42 34,56'
draw arrow_right -draw 'polygon 56,32 30,8 30,22 8,22 8,42 30,42 30,56'
draw disk -draw 'polygon 8,8 48,8 56,16 56,56 8,56' -fill white -draw 'rectangle 20,34 46,56' -draw 'rectangle 20,8 42,22'
draw folder_page -fill '#f0c870' -draw 'polygon 6,16 26,16 32,22 58,22 58,54 6,54' -fill white -draw 'rectangle 28,30 50,58'
draw error -stroke '#802018' -fill '#d84838' -draw 'circle 32,32 32,58' -stroke white -strokewidth 8 -draw 'line 22,22 42,42' -draw 'line 42,22 22,42'
