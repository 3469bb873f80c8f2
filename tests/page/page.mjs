// Run by scripts/test-page, which says what it does.
import { execFileSync, spawn } from 'node:child_process';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { compare, decode } from '../browser/png.mjs';

const tree = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
const [packages, ...rest] = process.argv.slice(2);
const { chromium } = createRequire(path.resolve(packages, 'package.json'))('playwright-core');
const option = (name, value) => rest.includes(name) ? path.resolve(rest[rest.indexOf(name) + 1]) : value;
const program = option('--program', path.join(tree, 'build/release/bin/txmap'));
const picture = option('--picture');
const build = path.join(tree, 'build/test-page');
const size = { width: 900, height: 600 };
// The measure of scripts/compare-browser: a blur of 3 x 3, and the part of pixels that may differ.
const [REACH, MOST] = [1, 0.02];

const problems = [];
const expect = (condition, what) => {
    console.log(`${condition ? 'ok  ' : 'FAIL'} ${what}`);
    if (!condition)
        problems.push(what);
};
const sleep = milliseconds => new Promise(done => setTimeout(done, milliseconds));
async function until(condition, what) {
    for (let i = 0; i < 300; i++) {
        if (await condition())
            return expect(true, what);
        await sleep(100);
    }
    expect(false, what);
}

/** Starts a server and waits for its address. */
function serve(style) {
    return new Promise((resolve, reject) => {
        const server = spawn(program, ['serve', style, '--port', '0'], { stdio: ['ignore', 'pipe', 'inherit'] });
        server.on('exit', code => reject(new Error(`txmap serve ended with ${code}`)));
        server.stdout.on('data', text => resolve({ server, url: /http:\S+/.exec(text)[0] }));
    });
}

/** A page whose console and requests are watched. */
async function open(browser, url, hash) {
    const page = await browser.newPage({ viewport: size });
    page.on('console', message => ['error', 'warning'].includes(message.type()) && expect(false, `console: ${message.text()}`));
    page.on('pageerror', error => expect(false, `page: ${error.message}`));
    page.on('request', request => /^(data|blob):/.test(request.url()) || request.url().startsWith(url) ||
        expect(false, `request to ${request.url()}`));
    page.on('response', answer => answer.status() < 400 || expect(false, `${answer.status()} for ${answer.url()}`));
    await page.goto(url + hash);
    return page;
}

/** Waits until all tiles are there, and no longer translucent. */
const settle = (page, what) => until(() => page.evaluate(() => {
    const tiles = [...document.querySelectorAll('.leaflet-tile-container:last-child .leaflet-tile')];
    return tiles.length > 0 && tiles.every(tile => tile.classList.contains('leaflet-tile-loaded') && tile.style.opacity === '1');
}), what);

/** Compares a page with the picture of the same view. */
async function compareView(page, style, name) {
    const shot = path.join(build, `${name}-page.png`);
    const drawn = path.join(build, `${name}-render.png`);
    await page.evaluate(() => { document.querySelector('.leaflet-control-container').style.display = 'none'; });
    await page.screenshot({ path: shot });
    await page.evaluate(() => { document.querySelector('.leaflet-control-container').style.display = ''; });
    const [zoom, latitude, longitude] = new URL(page.url()).hash.slice(1).split('/');
    execFileSync(program, ['render', style, '-o', drawn, '--size', `${size.width}x${size.height}`, '--zoom', zoom,
        '--center', `${longitude},${latitude}`]);
    const result = compare(decode(fs.readFileSync(shot)), decode(fs.readFileSync(drawn)), REACH);
    if (result.picture)
        fs.writeFileSync(path.join(build, `${name}-difference.png`), result.picture);
    expect(result.part <= MOST, `${name}: ${(result.part * 100).toFixed(2)} % of pixels differ from txmap render, at most ${MOST * 100}`);
}

/** The colour in the middle of what is seen. */
async function middleOf(page) {
    const shot = decode(await page.screenshot());
    const at = (Math.floor(shot.height / 2) * shot.width + Math.floor(shot.width / 2)) * 3;
    return [...shot.pixels.slice(at, at + 3)].join();
}

const square = color => JSON.stringify({ version: 8, sources: {}, layers: [
    { id: 'b', type: 'background', paint: { 'background-color': color } }] });

async function lookAround(browser) {
    const style = path.join(tree, 'styles/political.json');
    const { server, url } = await serve(style);
    const page = await open(browser, url, '#2/20/10');
    await settle(page, 'tiles come');
    if (picture)
        await page.screenshot({ path: picture, type: 'jpeg', quality: 82 });
    await compareView(page, style, 'first');
    await page.mouse.move(450, 300);
    await page.mouse.down();
    await page.mouse.move(300, 400, { steps: 10 });
    // A map that is let go of while it moves goes on moving.
    await sleep(300);
    await page.mouse.up();
    await until(() => !page.url().endsWith('#2/20/10') && /^#2\//.test(new URL(page.url()).hash), 'panning moves the map');
    await settle(page, 'tiles of what was not seen before come');
    await compareView(page, style, 'panned');
    await page.click('.leaflet-control-zoom-in');
    await until(() => new URL(page.url()).hash.startsWith('#3/'), 'zooming zooms');
    await settle(page, 'tiles of the next zoom come');
    await compareView(page, style, 'zoomed');
    await page.close();
    await endWell(server);
}

async function saveStyles(browser) {
    const style = path.join(build, 'square.json');
    fs.writeFileSync(style, square('#ff0000'));
    const { server, url } = await serve(style);
    const page = await open(browser, url, '');
    await settle(page, 'a style without sources is shown');
    expect(await middleOf(page) === '255,0,0', 'it is red');
    fs.writeFileSync(style, square('#0000ff'));
    await until(async () => await middleOf(page) === '0,0,255', 'a saved style redraws the page');
    fs.writeFileSync(style, '{');
    await until(() => page.isVisible('#problem'), 'a broken style is told');
    expect((await page.textContent('#problem')).includes('square.json: /'), 'with its file and place');
    fs.writeFileSync(style, square('#00ff00'));
    await until(async () => await middleOf(page) === '0,255,0', 'the next one is drawn');
    await until(() => page.isHidden('#problem'), 'and the message goes');
    await page.close();
    await endWell(server);
}

async function endWell(server) {
    server.removeAllListeners('exit');
    const ended = new Promise(done => server.on('exit', done));
    server.kill('SIGTERM');
    expect(await ended === 0, 'the server ends well');
}

fs.mkdirSync(build, { recursive: true });
const browser = await chromium.launch({ executablePath: '/usr/bin/chromium', args: ['--no-sandbox', '--disable-gpu'] });
try {
    await lookAround(browser);
    await saveStyles(browser);
} finally {
    await browser.close();
}
process.exit(problems.length > 0 ? 1 : 0);
