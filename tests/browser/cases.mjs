// Small styles: for each property of each layer that txmap draws, some of its values.
import { areas, lines, points } from './data.mjs';
import { symbolStyles } from './symbols.mjs';

const byKind = (a, b, c) => ['match', ['get', 'kind'], 'a', a, 'b', b, c];
const raster = { type: 'raster', tiles: ['data/pictures/{z}/{x}/{y}.png'], tileSize: 256, maxzoom: 3 };
const heights = { type: 'raster-dem', tiles: ['data/heights/{z}/{x}/{y}.png'], tileSize: 256, maxzoom: 3, encoding: 'terrarium' };
const picture = { type: 'image', url: 'data/picture.png', coordinates: [[-17, 14], [13, 17], [16, -13], [-15, -16]] };
const vector = { type: 'vector', tiles: ['data/world/{z}/{x}/{y}.pbf'], maxzoom: 4 };
const geojson = (data, more = {}) => ({ type: 'geojson', data, ...more });

const HEIGHTS = ['interpolate', ['linear'], ['elevation'], 1000, '#204080', 6000, '#70a050', 11000, '#c08040', 16000, '#ffffff'];

/** What a property is set on, if nothing else is said. */
const BASE = {
    background: {},
    fill: { source: geojson(areas), paint: { 'fill-color': '#d2691e' } },
    line: { source: geojson(lines), paint: { 'line-width': 8, 'line-color': '#4169e1' } },
    circle: { source: geojson(points), paint: { 'circle-radius': 20, 'circle-color': '#2e8b57' } },
    raster: { source: raster, paint: {} },
    hillshade: { source: heights, paint: {} },
    'color-relief': { source: heights, paint: { 'color-relief-color': HEIGHTS } }
};

// Browsers do not blend layers yet, whatever `*-layer-blend` says, and draw no steps of heights.
// Type, property, values. A value with `$` brings other properties and members of the style.
const PROPERTIES = [
    ['background', 'background-color', ['#a0c0e0', 'hsla(120, 60%, 40%, 0.5)', ['interpolate', ['linear'], ['zoom'], 0, 'red', 4, 'blue']]],
    ['background', 'background-opacity', [0.3]],
    ['background', 'background-pattern', ['checks', { $: 'spots', zoom: 2.6 }, { $: 'stripes', bearing: 30 }, { $: 'checks', scale: 2 }]],
    ['background', 'visibility', ['none']],
    ['fill', 'fill-antialias', [false, true]],
    ['fill', 'fill-opacity', [0.5, byKind(0.2, 0.6, 1)]],
    ['fill', 'fill-layer-opacity', [0.5]],
    ['fill', 'fill-color', ['#336699', ['get', 'c'], { property: 'n', stops: [[1, 'red'], [3, 'yellow']] }, 'rgba(255, 0, 0, 0.4)']],
    ['fill', 'fill-outline-color', ['#000', ['get', 'c'], { $: '#f00', 'fill-opacity': 0.5 }]],
    ['fill', 'fill-translate', [[20, 10], { $: [20, 10], bearing: 40 }]],
    ['fill', 'fill-translate-anchor', [{ $: 'viewport', 'fill-translate': [20, 10], bearing: 40 }, { $: 'map', 'fill-translate': [20, 10], bearing: 40 }]],
    ['fill', 'fill-pattern', ['checks', byKind('checks', 'spots', 'stripes'), { $: 'stripes', zoom: 2.6 }, { $: 'checks', 'fill-opacity': 0.4 }, { $: 'stripes', bearing: 25 }, { $: 'checks', scale: 2 }]],
    ['fill', 'fill-sort-key', [['-', 0, ['get', 'n']], { $: ['get', 'n'], 'fill-color': ['get', 'c'] }]],
    ['fill', 'visibility', ['none', 'visible']],
    ['line', 'line-cap', ['butt', 'round', 'square', { $: 'round', 'line-opacity': 0.5 }]],
    ['line', 'line-join', ['bevel', 'round', 'miter', { $: 'round', 'line-width': 24, 'line-opacity': 0.5 }, { $: 'bevel', 'line-width': 24 }, { $: 'miter', 'line-width': 24 }]],
    ['line', 'line-miter-limit', [1, 4, 10, { $: 4, 'line-width': 24 }, { $: 1.1, 'line-width': 24 }]],
    ['line', 'line-round-limit', [1, { $: 2, 'line-join': 'round', 'line-width': 20 }]],
    ['line', 'line-sort-key', [['-', 0, ['get', 'n']]]],
    ['line', 'line-opacity', [0.4, byKind(0.2, 0.6, 1), { $: 0.5, 'line-width': 24 }]],
    ['line', 'line-layer-opacity', [0.4]],
    ['line', 'line-color', ['#883300', ['get', 'c'], 'rgba(0, 0, 255, 0.5)']],
    ['line', 'line-translate', [[20, 10]]],
    ['line', 'line-translate-anchor', [{ $: 'viewport', 'line-translate': [20, 10], bearing: 40 }, { $: 'map', 'line-translate': [20, 10], bearing: 40 }]],
    ['line', 'line-width', [0.4, 1, 3, 30, ['*', 4, ['get', 'n']], { $: 6, scale: 2 }, ['interpolate', ['exponential', 2], ['zoom'], 0, 1, 4, 20]]],
    ['line', 'line-gap-width', [6, { $: byKind(0, 6, 12), 'line-width': 3 }, { $: 10, 'line-width': 2, 'line-join': 'round' }]],
    ['line', 'line-offset', [8, -8, { $: 12, 'line-join': 'round' }, { $: byKind(4, -4, 10), 'line-width': 3 }]],
    ['line', 'line-blur', [2, 8, { $: 6, 'line-width': 20 }, { $: byKind(0, 4, 8), 'line-width': 12 }]],
    ['line', 'line-dasharray', [[2, 1], [1, 2, 3, 1], { $: [2, 2], 'line-cap': 'round' }, { $: [2, 2], 'line-cap': 'square' }, { $: [2, 1], zoom: 2.6 }, { $: [3, 1], 'line-width': 2 }, { $: [0, 2], 'line-cap': 'round' }, { $: [2, 1], 'line-width': ['*', 4, ['get', 'n']] }, { $: [3], 'line-width': 6 }, { $: [2, 2], 'line-opacity': 0.5, 'line-width': 16 }]],
    ['line', 'line-pattern', [{ $: 'checks', 'line-width': 16 }, { $: 'stripes', 'line-width': 8 }, { $: 'checks', 'line-width': 8 }, { $: 'checks', 'line-width': 24 }, { $: 'spots', 'line-width': 20, zoom: 2.6 }, { $: 'checks', 'line-width': 12, 'line-opacity': 0.5 }, { $: byKind('checks', 'spots', 'stripes'), 'line-width': 12 }, { $: 'checks', 'line-width': 12, scale: 2 }]],
    ['line', 'line-gradient', [['interpolate', ['linear'], ['line-progress'], 0, 'red', 0.5, 'yellow', 1, 'blue'], ['step', ['line-progress'], 'red', 0.3, 'green', 0.7, 'blue'], { $: ['interpolate', ['linear'], ['line-progress'], 0, 'rgba(255,0,0,0)', 1, 'blue'], 'line-width': 16, 'line-cap': 'round' }]],
    ['line', 'visibility', ['none']],
    ['circle', 'circle-radius', [3, 12.5, ['*', 3, ['get', 'n']], { $: ['interpolate', ['linear'], ['zoom'], 0, 2, 4, 30], scale: 2 }]],
    ['circle', 'circle-color', [['get', 'c'], 'rgba(255, 0, 0, 0.4)']],
    ['circle', 'circle-blur', [0.3, 1, 2, -0.5, { $: 0.6, 'circle-stroke-width': 8, 'circle-stroke-color': '#f00' }, byKind(0, 0.5, 1)]],
    ['circle', 'circle-opacity', [0.4, { $: 0.4, 'circle-stroke-width': 6 }, { $: 0.5, 'circle-radius': 50 }]],
    ['circle', 'circle-translate', [[20, 10]]],
    ['circle', 'circle-translate-anchor', [{ $: 'viewport', 'circle-translate': [20, 10], bearing: 40 }, { $: 'map', 'circle-translate': [20, 10], bearing: 40 }]],
    ['circle', 'circle-pitch-scale', ['viewport']],
    ['circle', 'circle-pitch-alignment', ['map', { $: 'map', bearing: 30 }]],
    ['circle', 'circle-stroke-width', [1, 6, ['get', 'n'], { $: 6, scale: 2 }]],
    ['circle', 'circle-stroke-color', [{ $: ['get', 'c'], 'circle-stroke-width': 6, 'circle-color': 'white' }]],
    ['circle', 'circle-stroke-opacity', [{ $: 0.4, 'circle-stroke-width': 8, 'circle-stroke-color': '#000' }, { $: 0.4, 'circle-stroke-width': 8, 'circle-opacity': 0 }]],
    ['circle', 'circle-sort-key', [{ $: ['-', 0, ['get', 'n']], 'circle-radius': 50, 'circle-color': ['get', 'c'] }]],
    ['circle', 'visibility', ['none']],
    ['raster', 'raster-opacity', [1, 0.4, { $: 1, zoom: 2.5 }, { $: 1, zoom: 4.3 }, { $: 1, bearing: 30 }, { $: 1, scale: 2 }, { $: 0.8, source: picture }]],
    ['raster', 'raster-hue-rotate', [90, 200]],
    ['raster', 'raster-brightness-min', [0.4]],
    ['raster', 'raster-brightness-max', [0.6]],
    ['raster', 'raster-saturation', [0.7, -0.7, -1, 1]],
    ['raster', 'raster-contrast', [0.6, -0.6]],
    ['raster', 'raster-resampling', [{ $: 'nearest', zoom: 5 }, { $: 'linear', zoom: 5 }, { $: 'nearest', source: picture }]],
    ['raster', 'resampling', [{ $: 'nearest', zoom: 5 }]],
    ['raster', 'raster-fade-duration', [0]],
    ['raster', 'visibility', ['none']],
    ['hillshade', 'hillshade-illumination-direction', [335, 90, { $: 200, bearing: 40 }]],
    ['hillshade', 'hillshade-illumination-altitude', [{ $: 20, 'hillshade-method': 'basic' }, { $: 70, 'hillshade-method': 'combined' }]],
    ['hillshade', 'hillshade-illumination-anchor', [{ $: 'map', bearing: 40 }, { $: 'viewport', bearing: 40 }]],
    ['hillshade', 'hillshade-exaggeration', [0.1, 0.5, 1, { $: 0.5, zoom: 4.4 }, { $: 0.5, zoom: 3.5 }, { $: 0.5, scale: 2 }]],
    ['hillshade', 'hillshade-shadow-color', ['#400080', { $: ['#400080', '#008040'], 'hillshade-method': 'multidirectional', 'hillshade-illumination-direction': [315, 45] }]],
    ['hillshade', 'hillshade-highlight-color', ['#ffd080', 'rgba(255, 255, 0, 0.3)']],
    ['hillshade', 'hillshade-accent-color', ['#00a050']],
    ['hillshade', 'hillshade-method', ['standard', 'basic', 'combined', 'igor', 'multidirectional']],
    ['hillshade', 'resampling', [{ $: 'linear', zoom: 4.4 }]],
    ['color-relief', 'color-relief-color', [HEIGHTS]],
    ['color-relief', 'color-relief-opacity', [0.4]],
    ['color-relief', 'resampling', [{ $: 'linear', zoom: 4.4 }, { $: 'nearest', zoom: 4.4 }]],
    ['color-relief', 'visibility', ['none']],
    ['hillshade', 'visibility', ['none']]
];

/** Members of the layer that are no properties. */
const MEMBERS = [
    ['fill', 'minzoom', { minzoom: 3 }], ['fill', 'maxzoom', { maxzoom: 2 }],
    ['fill', 'filter', { filter: ['==', ['get', 'kind'], 'b'] }], ['line', 'filter', { filter: ['>', 'n', 1] }],
    ['circle', 'filter', { filter: ['within', { type: 'Polygon', coordinates: [[[-20, -20], [5, -20], [5, 20], [-20, 20], [-20, -20]]] }] }]];

const isLayout = name => name === 'visibility' || name.endsWith('-sort-key') || /^line-(cap|join|miter-limit|round-limit)$/.test(name);

function propertyCase(type, property, value, index) {
    // Browsers measure dashes and patterns in another unit where a source has measures for gradients.
    const usual = property === 'line-gradient' ? geojson(lines, { lineMetrics: true }) : BASE[type].source;
    const { $: bare, zoom = 2, bearing = 0, scale = 1, source = usual, ...others } =
        value && typeof value === 'object' && '$' in value ? value : { $: value };
    const layer = { id: 'layer', type, ...(source && { source: 'source' }), paint: { ...BASE[type].paint }, layout: {} };
    for (const [name, one] of Object.entries({ ...others, [property]: bare }))
        layer[isLayout(name) ? 'layout' : 'paint'][name] = one;
    return styleCase(`${property}-${index + 1}`, [layer], source && { source }, { zoom, bearing, scale });
}

function styleCase(name, layers, sources, { zoom = 2, bearing = 0, scale = 1, center = [0, 0], size = [256, 256] }) {
    const below = layers[0].type === 'background' ? [] : [{ id: 'below', type: 'background', paint: { 'background-color': '#f4f1e8' } }];
    const style = { version: 8, center, zoom, bearing, sources: sources ?? {}, layers: [...below, ...layers] };
    if (JSON.stringify(layers).includes('-pattern'))
        style.sprite = 'data/sprite';
    return { name, style, size, scale };
}

const WORLD = [
    { id: 'sea', type: 'background', paint: { 'background-color': '#b8d4e6' } },
    { id: 'land', type: 'fill', source: 'world', 'source-layer': 'countries',
        paint: { 'fill-color': ['match', ['get', 'mapcolor'], 1, '#e8c170', 2, '#c1d58c', 3, '#e6a58c', 4, '#b3b8d8', 5, '#d9aecb', '#f0ead6'] } },
    { id: 'lakes', type: 'fill', source: 'world', 'source-layer': 'lakes', paint: { 'fill-color': '#7fb0d0', 'fill-outline-color': '#30648a' } },
    { id: 'rivers', type: 'line', source: 'world', 'source-layer': 'rivers', layout: { 'line-join': 'round', 'line-cap': 'round' },
        paint: { 'line-color': '#3f7fb0', 'line-width': ['interpolate', ['linear'], ['zoom'], 0, 0.5, 6, 4] } },
    { id: 'borders', type: 'line', source: 'world', 'source-layer': 'borders',
        paint: { 'line-color': '#7a3b6a', 'line-width': 2, 'line-dasharray': [3, 2] } },
    { id: 'places', type: 'circle', source: 'world', 'source-layer': 'places', minzoom: 1,
        paint: { 'circle-radius': 4, 'circle-color': '#fff', 'circle-stroke-width': 1.5, 'circle-stroke-color': '#222' } }];

const VIEWS = [
    { zoom: 0, size: [512, 512] }, { zoom: 1, center: [10, 30], size: [512, 400] }, { zoom: 1.5, center: [-90, 10], size: [512, 512] },
    { zoom: 2, center: [178, -20], size: [512, 512] }, { zoom: 2.7, center: [20, 5], size: [512, 512] }, { zoom: 3, center: [10, 50], size: [512, 512] },
    { zoom: 3.4, center: [100, 30], size: [512, 512], bearing: 30 }, { zoom: 4, center: [-75, -12], size: [512, 512] }, { zoom: 4.6, center: [12, 44], size: [512, 512] },
    { zoom: 5, center: [30, 0], size: [400, 400] }, { zoom: 6, center: [7, 47], size: [512, 512] }, { zoom: 3, center: [140, 38], size: [300, 300], scale: 2 },
    { zoom: 2, center: [-40, 72], size: [512, 300], bearing: -120 }];

export function smallStyles() {
    const cases = PROPERTIES.flatMap(([type, property, values]) =>
        values.map((value, index) => {
            const one = propertyCase(type, property, value, index);
            return ['visibility', 'resampling'].includes(property) ? { ...one, name: `${type}.${one.name}` } : one;
        }));
    for (const [type, name, members] of MEMBERS) {
        const one = propertyCase(type, `${type}-opacity`, 1, 0);
        Object.assign(one.style.layers.at(-1), members);
        cases.push({ ...one, name: `${type}-${name}` });
    }
    cases.push(...symbolStyles(styleCase));
    VIEWS.forEach((view, index) => cases.push(styleCase(`view-${index + 1}`, WORLD, { world: vector }, view)));
    return cases;
}
