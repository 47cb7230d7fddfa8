#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""draw-readback.py KML DXF SECTION.dxf OUT.png

Draws what GDAL reads from an exported KML document, a DXF drawing and a DXF drawing seen from the side, side by side.
Needs ogr2ogr (gdal-bin), ImageMagick's convert and fc-match (fontconfig)."""
import json
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as tree

KML = '{http://earth.google.com/kml/2.1}'


def features(path):
    """(layer, properties, geometry) of every feature that OGR finds."""
    out = subprocess.run(['ogrinfo', '-ro', '-q', path], capture_output=True, text=True, check=True).stdout
    for layer in re.findall(r'^\d+: (.*?)(?: \([^()]*\))?$', out, re.M):
        text = subprocess.run(['ogr2ogr', '-f', 'GeoJSON', '-skipfailures', '/vsistdout/', path, layer],
                              capture_output=True, text=True).stdout
        for feature in json.loads(text)['features']:
            if feature['geometry']:
                yield layer, feature['properties'], feature['geometry']


def pieces(geometry):
    """Its points, lines and rings as (kind, positions)."""
    kind = geometry['type']
    if kind == 'GeometryCollection':
        for part in geometry['geometries']:
            yield from pieces(part)
        return
    coordinates = geometry['coordinates']
    if kind.startswith('Multi'):
        for part in coordinates:
            yield from pieces({'type': kind[5:], 'coordinates': part})
    elif kind == 'Point':
        yield 'point', [coordinates]
    elif kind == 'LineString':
        yield 'line', coordinates
    else:
        for ring in coordinates:
            yield 'area', ring


class Panel:
    def __init__(self, title, left, top, width, height, stretch=False):
        self.title, self.left, self.top, self.width, self.height, self.stretch = title, left, top, width, height, stretch
        self.shapes, self.pictures = [], []

    def add(self, kind, positions, stroke, fill='none'):
        self.shapes.append((kind, [p[:2] for p in positions], stroke, fill))

    def draw(self):
        points = [p for _, ps, _, _ in self.shapes for p in ps] + [p for box, _ in self.pictures for p in box]
        x0, x1 = min(p[0] for p in points), max(p[0] for p in points)
        y0, y1 = min(p[1] for p in points), max(p[1] for p in points)
        sx, sy = (self.width - 20) / ((x1 - x0) or 1), (self.height - 50) / ((y1 - y0) or 1)
        if not self.stretch:
            sx = sy = min(sx, sy)

        def place(p):
            return self.left + 10 + (p[0] - x0) * sx, self.top + self.height - 10 - (p[1] - y0) * sy

        lines = ['fill white stroke #cccccc rectangle %d,%d %d,%d' % (self.left, self.top, self.left + self.width, self.top + self.height),
                 'stroke none fill black font-size 17 text %d,%d "%s"' % (self.left + 10, self.top + 22, self.title)]
        for (low, high), path in self.pictures:
            (ax, ay), (bx, by) = place((low[0], high[1])), place((high[0], low[1]))
            lines.append('image Over %.1f,%.1f %.1f,%.1f "%s"' % (ax, ay, bx - ax, by - ay, path))
        for kind, ps, stroke, fill in self.shapes:
            at = [place(p) for p in ps]
            if kind == 'point':
                lines.append('stroke none fill %s circle %.1f,%.1f %.1f,%.1f' % (stroke, *at[0], at[0][0] + 2, at[0][1]))
            else:
                shape = 'polygon' if kind == 'area' else 'polyline'
                lines.append('stroke %s fill %s %s %s' % (stroke, fill if kind == 'area' else 'none', shape, ' '.join('%.1f,%.1f' % p for p in at)))
        return lines


def kml_panel(path, panel):
    root = tree.parse(path).getroot()
    for overlay in root.iter(KML + 'GroundOverlay'):
        box = {edge: float(overlay.find('%sLatLonBox/%s%s' % (KML, KML, edge)).text) for edge in ('north', 'south', 'east', 'west')}
        picture = os.path.join(os.path.dirname(os.path.abspath(path)), overlay.find('%sIcon/%shref' % (KML, KML)).text)
        panel.pictures.append((((box['west'], box['south']), (box['east'], box['north'])), picture))
    looks = {'Polygons': ('#404040', '#ffffff30'), 'Polylines': ('#c00000', 'none'), 'Cross Sections': ('#0030ff', 'none')}
    for layer, _, geometry in features(path):
        if layer == 'Grid Surfaces':
            continue
        for kind, positions in pieces(geometry):
            panel.add(kind, positions, *looks.get(layer, ('#000000', 'none')))


def dxf_panel(path, panel):
    palette = ['#8a5a2b', '#c00000', '#205080', '#7048a0', '#0030ff', '#206040', '#b07020']
    layers = {}
    for _, properties, geometry in features(path):
        stroke = palette[layers.setdefault(properties['Layer'], len(layers)) % len(palette)]
        for kind, positions in pieces(geometry):
            panel.add('line' if kind == 'area' else kind, positions, stroke)


def main(kml, dxf, section, out):
    panels = [Panel('KML, read by GDAL (longitude, latitude)', 5, 5, 560, 640), Panel('DXF, read by GDAL (easting, northing)', 575, 5, 560, 640),
              Panel('DXF seen from the side (heights stretched)', 5, 655, 1130, 240, stretch=True)]
    kml_panel(kml, panels[0])
    dxf_panel(dxf, panels[1])
    dxf_panel(section, panels[2])
    font = subprocess.run(['fc-match', '-f', '%{file}', 'sans'], capture_output=True, text=True, check=True).stdout
    with tempfile.TemporaryDirectory() as folder:
        drawing = os.path.join(folder, 'drawing.mvg')
        with open(drawing, 'w', encoding='utf-8') as file:
            file.write('\n'.join(['viewbox 0 0 1140 900', 'font "%s"' % font, 'fill #f4f4f4 rectangle 0,0 1140,900'] + [line for panel in panels for line in panel.draw()]))
        subprocess.run(['convert', 'mvg:' + drawing, '-colors', '255', 'PNG8:' + out], check=True)


if __name__ == '__main__':
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main(*sys.argv[1:])
