#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what the tags of a GeoTIFF say and its values, by a reader that is not GDAL (Debian: python3-tifffile).

usage: read_tiff.py FILE
Exits 2 when the reader is not installed."""
import sys

try:
    import tifffile
except ImportError:
    print("python3-tifffile is not installed", file=sys.stderr)
    sys.exit(2)

with tifffile.TiffFile(sys.argv[1]) as file:
    page = file.pages[0]
    tags = {tag.name: tag.value for tag in page.tags.values()}
    keys = tags.get("GeoKeyDirectoryTag", ())
    keys = {keys[i]: keys[i + 3] for i in range(4, len(keys), 4)}
    print("type", page.dtype, "null", tags.get("GDAL_NODATA"), "point", keys.get(1025), "system", keys.get(3072))
    for name in ("ModelTiepointTag", "ModelPixelScaleTag", "ModelTransformationTag"):
        if name in tags:
            print(name, *("%.10g" % number for number in tags[name]))
    values = page.asarray()
    for line in values.reshape(values.shape[0], -1):
        print(*("%.9g" % number for number in line))
