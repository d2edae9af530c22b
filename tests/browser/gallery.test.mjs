// Opens the written gallery pages from disk in headless Chromium and checks them as a visitor
// sees them. The four CDN files are answered from the pinned npm copies, so nothing leaves the
// machine and the browser checks each integrity attribute against the real file.
//
//   GALLERY_DIR=<folder of write_gallery_pages> [SCREENSHOT_DIR=<folder>] node gallery.test.mjs

import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath, pathToFileURL } from 'node:url';

const here = path.dirname(fileURLToPath(import.meta.url));
const gallery = JSON.parse(fs.readFileSync(path.join(here, 'gallery.json'), 'utf8'));
const galleryDir = process.env.GALLERY_DIR;
const screenshotDir = process.env.SCREENSHOT_DIR ?? galleryDir;
const chromiumPath = process.env.CHROMIUM ?? '/usr/bin/chromium';

// The CDN addresses and the pinned npm copies that answer them.
const cdnFiles = Object.fromEntries(
  [
    'https://cdn.jsdelivr.net/npm/bootstrap@4.5.3/dist/css/bootstrap.min.css',
    'bootstrap/dist/css/bootstrap.min.css',
    'https://code.jquery.com/jquery-3.5.1.slim.min.js',
    'jquery/dist/jquery.slim.min.js',
    'https://cdn.jsdelivr.net/npm/popper.js@1.16.1/dist/umd/popper.min.js',
    'popper.js/dist/umd/popper.min.js',
    'https://cdn.jsdelivr.net/npm/bootstrap@4.5.3/dist/js/bootstrap.min.js',
    'bootstrap/dist/js/bootstrap.min.js',
  ].flatMap((url, i, list) => (i % 2 === 0 ? [[url, list[i + 1]]] : [])),
);

function requireTools() {
  const missing = ['playwright-core/package.json', ...Object.values(cdnFiles)]
    .map((file) => path.join(here, 'node_modules', file))
    .filter((file) => !fs.existsSync(file));
  const problem =
    (missing.length > 0 &&
      `The browser test's npm packages are missing (${missing[0]}): run "npm ci" in ${here}.`) ||
    (!fs.existsSync(chromiumPath) &&
      `No Chromium at ${chromiumPath}: install Debian's "chromium" package.`) ||
    ((!galleryDir || !fs.existsSync(galleryDir)) &&
      'GALLERY_DIR must name the folder that write_gallery_pages filled.');
  if (problem) throw new Error(problem);
}

requireTools();
const { chromium } = await import('playwright-core');

const images = gallery.images;
const colours = gallery.colours;
let context;
let profileDir;

before(async () => {
  profileDir = fs.mkdtempSync(path.join(os.tmpdir(), 'velmora-chromium-'));
  context = await chromium.launchPersistentContext(profileDir, {
    executablePath: chromiumPath,
    headless: true,
    // Captions are hidden below Bootstrap's md breakpoint.
    viewport: { width: 1280, height: 900 },
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-sync',
      '--disable-background-networking', '--disable-component-update'],
  });
});

after(async () => {
  await context?.close();
  if (profileDir) fs.rmSync(profileDir, { recursive: true, force: true });
});

// Answers the CDN addresses from the local copies and refuses every other address. Whatever goes
// wrong on the page is collected in `trouble`.
async function openOffline(file) {
  const page = await context.newPage();
  const served = new Set();
  const trouble = [];
  page.on('console', (line) => line.type() === 'error' && trouble.push(`console: ${line.text()}`));
  page.on('pageerror', (error) => trouble.push(`page error: ${error.message}`));
  page.on('requestfailed', (request) =>
    trouble.push(`request failed: ${request.url()} (${request.failure()?.errorText})`),
  );
  await page.route('**/*', async (route) => {
    const url = route.request().url();
    if (url.startsWith('file:')) return route.continue();
    const cdnFile = cdnFiles[url];
    if (!cdnFile) {
      trouble.push(`refused: ${url}`);
      return route.abort();
    }
    served.add(url);
    return route.fulfill({
      status: 200,
      contentType: cdnFile.endsWith('.css') ? 'text/css' : 'application/javascript',
      headers: { 'Access-Control-Allow-Origin': '*' },
      body: fs.readFileSync(path.join(here, 'node_modules', cdnFile)),
    });
  });
  await page.goto(pathToFileURL(path.join(galleryDir, file)).href);
  return { page, served, trouble };
}

// Waits until the slide at `index` is the active one and Bootstrap's transition has ended: while
// they move, Bootstrap marks both slides carousel-item-next, -prev, -left or -right.
async function waitForSlide(page, index, how) {
  const settled = (i) =>
    document.querySelectorAll('#simpleCarousel .carousel-item')[i]?.classList.contains('active') &&
    !document.querySelector('[class*="carousel-item-"]');
  await page
    .waitForFunction(settled, index, { timeout: 5000 })
    .catch(() => assert.fail(`slide ${index} did not come up after ${how}`));
}

// What a visitor sees of the carousel at this moment: the slides and indicators that are active
// or shown, by number, the caption on show and where the picture lies.
function carouselState(page) {
  return page.evaluate(() => {
    const items = [...document.querySelectorAll('#simpleCarousel .carousel-item')];
    const indicators = [...document.querySelectorAll('#simpleCarousel .carousel-indicators li')];
    const which = (list, holds) => list.flatMap((element, i) => (holds(element) ? [i] : []));
    const isActive = (element) => element.classList.contains('active');
    const active = items.find(isActive);
    // The first slide carries an extra caption ahead of its image; the slide's own is the last.
    const caption = [...active.querySelectorAll('.carousel-caption')].pop();
    const heading = caption.querySelector('h5');
    const picture = active.querySelector('img').getBoundingClientRect();
    return {
      seen: {
        active: which(items, isActive),
        shown: which(items, (item) => getComputedStyle(item).display !== 'none'),
        indicators: which(indicators, isActive),
        caption: {
          text: heading.textContent,
          colour: getComputedStyle(heading).color,
          visible: getComputedStyle(caption).display !== 'none' && heading.offsetHeight > 0,
        },
      },
      picture: { left: Math.round(picture.left), right: Math.round(picture.right) },
      viewportWidth: document.documentElement.clientWidth,
    };
  });
}

function checkPictureWidth({ picture: { left, right }, viewportWidth }, fullWidth) {
  const margins = [left, viewportWidth - right];
  if (fullWidth) assert.deepEqual(margins, [0, 0], 'edge to edge');
  else assert.ok(left > 0 && Math.abs(margins[0] - margins[1]) <= 1, `centred, got ${margins}`);
}

for (const { file, fullWidth } of gallery.pages) {
  test(`${file} works offline in Chromium`, { timeout: 45000 }, async (t) => {
    const { page, served, trouble } = await openOffline(file);
    try {
      await t.test('loads its style sheet and scripts, each passing its integrity check', async () => {
        assert.deepEqual(trouble, []);
        assert.deepEqual([...served].sort(), Object.keys(cdnFiles).sort());
        const libraries = await page.evaluate(() => [
          window.jQuery?.fn.jquery.split(' ')[0],
          typeof window.Popper,
          typeof window.jQuery?.fn.carousel,
        ]);
        assert.deepEqual(libraries, ['3.5.1', 'function', 'function']);
      });

      // Titles, captions and file names hold markup, quotes, escapes and a name that is not
      // UTF-8: each slide still shows its own file (every picture has a width of its own) and
      // the text as typed, and nothing typed runs or breaks the carousel.
      await t.test('shows its titles as typed and its pictures in the chosen colours', async () => {
        const look = await page.evaluate(() => {
          const seen = (selector) => {
            const element = document.querySelector(selector);
            return { text: element.textContent, colour: getComputedStyle(element).color };
          };
          const slides = [...document.querySelectorAll('#simpleCarousel .carousel-item')];
          return {
            htmlTitle: document.title,
            background: getComputedStyle(document.body).backgroundColor,
            title: seen('h1.display-4'),
            subtitle: seen('p.h4'),
            pictures: slides.map((slide) => {
              const img = slide.querySelector('img');
              const caption = [...slide.querySelectorAll('.carousel-caption h5')].pop();
              const { naturalWidth: width, naturalHeight: height } = img;
              return { width, height, caption: caption.textContent };
            }),
            controls: document.querySelectorAll('#simpleCarousel a[class^=carousel-control]')
              .length,
            scripted: window.scripted ?? false,
          };
        });
        assert.deepEqual(look, {
          htmlTitle: gallery.htmlTitle,
          background: colours.background.rgb,
          title: { text: gallery.title, colour: colours.titles.rgb },
          subtitle: { text: gallery.subtitle, colour: colours.titles.rgb },
          pictures: images.map(({ width, height, caption }) => ({ width, height, caption })),
          controls: 2,
          scripted: false,
        });
      });

      await t.test('moves between slides with next, previous and the indicators', async () => {
        // The visitor's pointer over the carousel holds its automatic cycling.
        await page.hover('#simpleCarousel');
        const last = images.length - 1;
        const steps = [
          { how: 'opening', slide: 0 },
          { how: 'next', click: '.carousel-control-next', slide: 1 },
          { how: 'next again', click: '.carousel-control-next', slide: 2 },
          { how: 'previous', click: '.carousel-control-prev', slide: 1 },
          { how: 'the last indicator', click: `.carousel-indicators li >> nth=${last}`, slide: last },
          { how: 'next from the last', click: '.carousel-control-next', slide: 0 },
        ];
        for (const { how, click, slide } of steps) {
          if (click) await page.click(`#simpleCarousel ${click}`);
          await waitForSlide(page, slide, how);
          const state = await carouselState(page);
          const { caption: text } = images[slide];
          const caption = { text, colour: colours.captions.rgb, visible: true };
          const expected = { active: [slide], shown: [slide], indicators: [slide], caption };
          assert.deepEqual(state.seen, expected, `slide ${slide} after ${how}`);
          checkPictureWidth(state, fullWidth);
        }
        assert.deepEqual(trouble, []);
      });
    } finally {
      if (screenshotDir) {
        fs.mkdirSync(screenshotDir, { recursive: true });
        const name = `${path.basename(file, path.extname(file))}.png`;
        await page.screenshot({ path: path.join(screenshotDir, name), fullPage: true });
      }
      await page.close();
    }
  });
}
