// Styles for the validators: good ones, and ones with one mistake each.
const square = { type: 'Polygon', coordinates: [[[-90, -60], [90, -60], [90, 60], [-90, 60], [-90, -60]]] };
const corners = [[-10, 10], [10, 10], [10, -10], [-10, -10]];

/** A style with a bit of everything. */
const good = () => ({
    version: 8, name: 'Good', center: [8, 50], zoom: 2, bearing: 10, sprite: 'sprite', glyphs: 'fonts/{fontstack}/{range}.pbf',
    metadata: { author: 'nobody' }, transition: { duration: 300, delay: 0 }, light: { anchor: 'map', intensity: 0.3 },
    sources: {
        shapes: { type: 'geojson', data: square, lineMetrics: true, attribution: 'nobody' },
        tiles: { type: 'vector', tiles: ['tiles/{z}/{x}/{y}.pbf'], minzoom: 0, maxzoom: 6, scheme: 'xyz' },
        pictures: { type: 'raster', tiles: ['tiles/{z}/{x}/{y}.png'], tileSize: 256 },
        heights: { type: 'raster-dem', tiles: ['heights/{z}/{x}/{y}.png'], encoding: 'terrarium' },
        picture: { type: 'image', url: 'picture.png', coordinates: corners }
    },
    layers: [
        { id: 'background', type: 'background', paint: { 'background-color': '#abc' } },
        { id: 'fill', type: 'fill', source: 'shapes', filter: ['==', ['get', 'kind'], 'a'], layout: { 'fill-sort-key': 1 },
            paint: { 'fill-color': ['match', ['get', 'kind'], 'a', '#f00', '#0f0'], 'fill-opacity': 0.5 } },
        { id: 'line', type: 'line', source: 'tiles', 'source-layer': 'roads', filter: ['all', ['==', '$type', 'LineString'], ['in', 'class', 'a', 'b']],
            layout: { 'line-join': 'round' }, paint: { 'line-width': { base: 1.4, stops: [[5, 1], [10, 8]] }, 'line-dasharray': [2, 1] } },
        { id: 'circle', type: 'circle', source: 'tiles', 'source-layer': 'places', minzoom: 2, maxzoom: 12,
            paint: { 'circle-radius': ['interpolate', ['linear'], ['zoom'], 0, 1, 10, ['*', 2, ['get', 'rank']]], 'circle-translate': [1, 2] } },
        { id: 'raster', type: 'raster', source: 'pictures', paint: { 'raster-opacity': 0.7 } },
        { id: 'hillshade', type: 'hillshade', source: 'heights', paint: { 'hillshade-exaggeration': 0.4 } },
        { id: 'symbol', type: 'symbol', source: 'tiles', 'source-layer': 'places',
            layout: { 'text-field': ['get', 'name'], 'text-font': ['Noto Sans Regular'], 'text-offset': [0, 1], 'icon-image': 'dot' },
            paint: { 'text-color': '#222', 'text-halo-width': 1 } },
        { id: 'heat', type: 'heatmap', source: 'tiles', 'source-layer': 'places', paint: { 'heatmap-intensity': 2 } },
        { id: 'buildings', type: 'fill-extrusion', source: 'tiles', 'source-layer': 'buildings', paint: { 'fill-extrusion-height': ['get', 'height'] } },
        { id: 'relief', type: 'color-relief', source: 'heights',
            paint: { 'color-relief-color': ['interpolate', ['linear'], ['elevation'], 0, '#0f0', 4000, '#fff'] } }
    ]
});

const GONE = Symbol('gone');
const NAMES = ['background', 'fill', 'line', 'circle', 'raster', 'hillshade', 'symbol', 'heat', 'buildings', 'relief'];

// What is set, by its path with layers by name, and to what.
const GOOD = [
    ['name', GONE], ['zoom', 30], ['sources/other', { type: 'geojson', data: 'file.geojson' }], ['sprite', [{ id: 'a', url: 'a' }]],
    ['unknown', 1], ['layers/fill/paint/fill-color-transition', { duration: 5 }], ['layers/fill/unknown', 1], ['layers/fill/metadata', 'text'],
    ['layers/fill/paint/fill-pattern', 'p'], ['layers/fill/filter', ['has', 'x']], ['layers/fill/filter', ['none', ['!has', 'x']]],
    ['layers/fill/filter', ['within', square]], ['layers/fill/filter', true], ['layers/fill/paint', {}], ['layers/fill/layout', {}],
    ['layers/fill/layout/visibility', 'none'], ['layers/line/paint/line-width', ['interpolate', ['exponential', 2], ['zoom'], 5, ['get', 'w'], 9, 2]],
    ['layers/line/paint/line-width', { property: 'w', type: 'identity' }], ['layers/line/paint/line-color', { property: 'c', type: 'categorical', stops: [['a', 'red']], default: 'blue' }],
    ['layers/line/paint/line-width', { property: 'w', stops: [[{ zoom: 1, value: 0 }, 1], [{ zoom: 2, value: 0 }, 2]] }],
    ['layers/line/paint/line-dasharray', ['step', ['zoom'], ['literal', [1, 2]], 5, ['literal', [2, 2]]]], ['layers/line/paint/line-translate', [1, -1]],
    ['layers/circle/paint/circle-color', ['feature-state', 'c']],
    ['layers/circle/paint/circle-color', 'rebeccapurple'], ['layers/circle/paint/circle-color', 'hsl(120 50% 50% / 0.4)'],
    ['layers/hillshade/paint/hillshade-illumination-direction', [10, 20]], ['layers/symbol/layout/text-field', '{name} ({ele})'],
    ['layers/symbol/layout/text-field', ['format', 'a', { 'font-scale': 2 }]], ['layers/symbol/layout/icon-padding', [1, 2, 3]],
    ['layers/symbol/layout/text-variable-anchor-offset', ['top', [0, 1], 'left', [1, 0]]], ['projection', { type: 'globe' }],
    ['sky', { 'sky-color': '#00f', 'horizon-fog-blend': 0.5 }], ['terrain', { source: 'heights', exaggeration: 2 }], ['state', { a: { default: 3 } }],
    ['sources/film', { type: 'video', urls: ['a.mp4'], coordinates: corners }], ['layers/background/paint/background-pattern', 'p'],
    ['sources/shapes/filter', ['==', ['get', 'a'], 1]], ['sources/shapes/clusterProperties', { sum: ['+', ['get', 'n']] }], ['pitch', 40], ['roll', 3],
    ['sources/heights/encoding', 'mapbox'], ['layers/raster/source', 'picture'], ['terrain', {}], ['terrain', { source: 'none' }], ['state', { a: 3 }],
    ['layers/fill/paint/fill-opacity', ['heatmap-density']], ['layers/fill/paint/fill-opacity', ['line-progress']], ['layers/line/paint/line-dasharray', ['get', 'd']],
    ['layers/hillshade/paint/hillshade-illumination-direction', 360], ['layers/hillshade/paint/hillshade-illumination-direction', [10, 400]], ['font-faces', {}], ['light/position', [1, 2, 3]]];

const BROKEN = [
    // The root
    ['version', 7], ['version', '8'], ['version', GONE], ['sources', GONE], ['layers', GONE], ['layers', {}], ['sources', []], ['name', 3],
    ['center', [1]], ['center', ['a', 'b']], ['zoom', '3'], ['bearing', null], ['glyphs', 'fonts.pbf'], ['glyphs', 4], ['sprite', 4], ['sprite', [{ id: 'a' }]],
    ['sprite', [{ id: 'a', url: 'a' }, { id: 'a', url: 'b' }]], ['transition', { duration: -1 }], ['transition', 4], ['light', { intensity: 2 }], ['light', { unknown: 2 }],
    ['light', 3], ['sky', { 'sky-color': 'nocolor' }], ['sky', 'blue'], ['projection', { type: 3 }], ['projection', 4], ['light', { position: [1, 2] }], ['state', 4],
    // Sources
    ['sources/shapes', 3], ['sources/shapes/type', GONE], ['sources/shapes/type', 'geo'], ['sources/shapes/data', GONE], ['sources/shapes/unknown', 1],
    ['sources/shapes/buffer', 600], ['sources/shapes/cluster', 'yes'], ['sources/shapes/filter', ['==', ['get']]], ['sources/shapes/clusterRadius', -4],
    ['sources/tiles/tiles', 'a'], ['sources/tiles/tiles', [1]], ['sources/tiles/scheme', 'zyx'], ['sources/tiles/minzoom', '0'], ['sources/tiles/bounds', [1, 2]],
    ['sources/pictures/tileSize', '256'], ['sources/heights/encoding', 'png'], ['sources/heights/redFactor', 3], ['sources/picture/coordinates', GONE],
    ['sources/picture/coordinates', [[1, 2]]], ['sources/picture/coordinates', [[1, 2], [1, 2], [1, 2], [1]]], ['sources/picture/url', 5],
    ['sources/picture/unknown', 3], ['sources/film', { type: 'video', coordinates: corners }], ['sources/tiles/encoding', 'zip'], ['sources/tiles/volatile', 3],
    // Layers
    ['layers/fill', 3], ['layers/fill/id', GONE], ['layers/fill/id', 4], ['layers/fill/id', 'line'], ['layers/fill/type', GONE], ['layers/fill/type', 'area'],
    ['layers/fill/type', 4], ['layers/fill/source', GONE], ['layers/fill/source', 'none'], ['layers/fill/source', 'pictures'], ['layers/raster/source', 'tiles'], ['layers/hillshade/source', 'pictures'],
    ['layers/line/source-layer', GONE], ['layers/line/source-layer', 4], ['layers/fill/minzoom', -1], ['layers/fill/maxzoom', 25], ['layers/fill/minzoom', 'a'],
    ['layers/fill/layout', 3], ['layers/fill/paint', []], ['layers/fill/ref', 'none'], ['layers/fill/layout/visibility', 'hidden'], ['layers/fill/layout/visibility', ['get', 'a']],
    ['layers/fill/layout/fill-color', 'red'], ['layers/fill/paint/line-width', 4], ['layers/fill/paint/fill-colour', 'red'], ['layers/fill/metadata', 'x', ['layers/line/minzoom', null]],
    ['layers/fill/paint/fill-color-transition', 3], ['layers/fill/paint/fill-color-transition', { duration: 'a' }],
    // Constants
    ['layers/fill/paint/fill-color', 'reddish'], ['layers/fill/paint/fill-color', 4], ['layers/fill/paint/fill-color', ''], ['layers/fill/paint/fill-color', '#12'],
    ['layers/fill/paint/fill-color', null], ['layers/fill/paint/fill-opacity', 1.1], ['layers/fill/paint/fill-opacity', '1'], ['layers/fill/paint/fill-antialias', 1],
    ['layers/fill/paint/fill-translate', [1]], ['layers/fill/paint/fill-translate', 4], ['layers/fill/paint/fill-translate', [1, 'a']],
    ['layers/fill/paint/fill-translate-anchor', 'south'], ['layers/fill/paint/fill-pattern', 4], ['layers/line/paint/line-width', -1], 
    ['layers/line/paint/line-dasharray', ['a']], ['layers/line/paint/line-dasharray', 2], ['layers/line/layout/line-join', 'sharp'], ['layers/line/layout/line-cap', 3],
    ['layers/circle/paint/circle-radius', [1]], ['layers/raster/paint/raster-contrast', 2], ['layers/raster/paint/raster-resampling', 'cubic'],
        ['layers/hillshade/paint/hillshade-method', 'other'], ['layers/hillshade/paint/hillshade-shadow-color', ['#000', 'x']], ['layers/symbol/layout/text-size', -1],
    ['layers/symbol/layout/text-font', 'Arial'], ['layers/symbol/layout/icon-padding', [1, 2, 3, 4, 5]], ['layers/symbol/layout/text-variable-anchor', ['above']],
    ['layers/symbol/layout/text-variable-anchor-offset', ['top']], ['layers/symbol/layout/text-anchor', 'middle'], ['layers/background/paint/background-opacity', -0.5],
    // Functions
    ['layers/line/paint/line-width', {}], ['layers/line/paint/line-width', { stops: [] }], ['layers/line/paint/line-width', { stops: [[5, 1], [4, 2]] }],
    ['layers/line/paint/line-width', { stops: [['a', 1]] }], ['layers/line/paint/line-width', { stops: [[1, 'a']] }], ['layers/line/paint/line-width', { stops: [[1]] }],
    ['layers/line/paint/line-width', { stops: 3 }], ['layers/line/paint/line-width', { type: 'other', stops: [[1, 1]] }], ['layers/line/paint/line-width', { base: 'a', stops: [[1, 1]] }],
    ['layers/line/paint/line-width', { property: 3, stops: [[1, 1]] }], ['layers/line/paint/line-width', { type: 'identity' }], ['layers/line/paint/line-width', { property: 'w', type: 'categorical', stops: [[{}, 1]] }],
    ['layers/line/paint/line-width', { property: 'w', stops: [[{ zoom: 'a', value: 0 }, 1]] }], ['layers/line/paint/line-width', { stops: [[1, 1]], unknown: 3 }],
    ['layers/line/paint/line-color', { property: 'c', type: 'categorical', stops: [['a', 'red']], default: 'nocolor' }],
    ['layers/line/paint/line-translate-anchor', { property: 'a', type: 'categorical', stops: [['a', 'map']] }], ['layers/line/layout/line-cap', { type: 'exponential', stops: [[1, 'butt'], [2, 'round']] }],
    ['layers/line/paint/line-width', { property: 'w', type: 'categorical', stops: [['a', 1], [2, 3]] }],
    // Expressions
    ['layers/fill/paint/fill-color', ['get', 1]], ['layers/fill/paint/fill-color', ['get']], ['layers/fill/paint/fill-color', ['unknown', 1]], ['layers/fill/paint/fill-color', []],
    ['layers/fill/paint/fill-color', ['match', ['get', 'a'], 'a']], ['layers/fill/paint/fill-color', ['match', ['get', 'a'], 'a', 'red', 'a', 'blue', 'green']], ['layers/fill/paint/fill-color', ['+', 1, 2]],
    ['layers/fill/paint/fill-opacity', ['interpolate', ['linear'], ['zoom'], 5, 1, 4, 0]], ['layers/fill/paint/fill-opacity', ['+', ['zoom'], 1]], 
    ['layers/fill/paint/fill-antialias', ['get', 'a']], ['layers/fill/paint/fill-translate', ['get', 'a']], ['layers/fill/layout/fill-sort-key', ['zoom', 3]],
    ['layers/fill/paint/fill-color', ['case', ['get', 'a'], 'red']], ['layers/fill/paint/fill-color', ['let', 'a', 1]], ['layers/fill/paint/fill-color', ['var', 'a']], ['layers/fill/paint/fill-color', ['step', ['zoom'], 'red', 'a', 'blue']],
    ['layers/line/paint/line-gradient', ['interpolate', ['linear'], ['line-progress'], 0, 'red', 1, 'blue']], ['layers/line/paint/line-gradient', 'red'],
    ['layers/heat/paint/heatmap-color', ['get', 'c']], ['layers/relief/paint/color-relief-color', ['interpolate', ['linear'], ['zoom'], 0, '#0f0', 4, '#fff']], ['layers/symbol/layout/text-field', ['format']],
    ['layers/symbol/layout/text-field', ['number-format', 1]], ['layers/symbol/layout/text-size', ['feature-state', 'a']], ['layers/symbol/layout/symbol-placement', ['get', 'a']],
    ['layers/circle/paint/circle-radius', ['literal', 'a']], ['layers/circle/paint/circle-radius', ['literal']], ['layers/circle/paint/circle-color', ['hsl', 120, 50, 50]], ['layers/circle/paint/circle-translate', ['literal', [1]]],
    ['layers/raster/paint/raster-opacity', ['get', 'a']], ['layers/background/paint/background-color', ['get', 'a']], ['layers/fill/paint/fill-layer-blend', ['zoom']],
    // Filters
    ['layers/fill/filter', 'a'], ['layers/fill/filter', []], ['layers/fill/filter', ['unknown', 'a', 'b']], ['layers/fill/filter', ['==', 'a']], ['layers/fill/filter', ['==', '$type', 'Square']],
    ['layers/fill/filter', ['==', 3, 3]], ['layers/fill/filter', ['>', '$type', 'Point']], ['layers/fill/filter', ['has', 'a', 'b']], ['layers/fill/filter', ['in', 'a', ['b']]], ['layers/fill/filter', ['all', 3]],
    ['layers/fill/filter', ['==', ['get', 'a'], ['feature-state', 'b']]], ['layers/fill/filter', ['all', ['==', ['get'], 3]]], ['layers/fill/filter', ['==', 'a', {}]],
    ['layers/fill/filter', { a: 1 }], ['layers/fill/filter', 3]];

// What the public validator lets pass, but cannot be drawn.
const STRICTER = [
    ['layers/line/paint/line-dasharray', [1, -1]], ['layers/fill/filter', ['+', 1, 2]], ['center', [8, 95]], ['layers/fill', null],
    ['layers/fill/layout/fill-sort-key', ['interpolate', ['linear'], ['get', 'a'], 0]]];

function set(style, path, value) {
    const keys = path.split('/').map((key, index, all) => all[index - 1] === 'layers' ? NAMES.indexOf(key) : key);
    const last = keys.pop();
    const target = keys.reduce((object, key) => object[key] ??= {}, style);
    if (value === GONE)
        delete target[last];
    else
        target[last] = value;
}

const shown = value => value === GONE ? 'missing' : JSON.stringify(value);

function variants(list) {
    return list.map(([path, value, ...more]) => {
        const style = good();
        for (const [where, what] of [[path, value], ...more])
            set(style, where, what);
        return { name: [[path, value], ...more].map(([where, what]) => `${where}: ${shown(what)}`).join(', ').slice(0, 110), style };
    });
}

export const goodStyles = () => [{ name: 'good', style: good() }, ...variants(GOOD)];
export const stricterStyles = () => variants(STRICTER);
export const brokenStyles = () => variants(BROKEN);
