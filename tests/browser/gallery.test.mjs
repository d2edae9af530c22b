// Opens the written gallery pages from disk in headless Chromium and checks them as a visitor
// sees them, offline: the CDN files are answered from the pinned npm copies (run "npm ci" here),
// and the browser checks each integrity attribute against them.
//   GALLERY_DIR=<write_gallery_pages' folder> SCREENSHOT_DIR=<folder> node gallery.test.mjs

import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const here = path.dirname(fileURLToPath(import.meta.url));
const gallery = JSON.parse(fs.readFileSync(path.join(here, 'gallery.json'), 'utf8'));
const { images, colours, cdnFiles } = gallery;
const { GALLERY_DIR: galleryDir, SCREENSHOT_DIR: screenshotDir } = process.env;
fs.mkdirSync(screenshotDir, { recursive: true });
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
  args: ['--no-sandbox', '--disable-gpu', '--disable-background-networking'],
});
after(() => browser.close());

// Answers the CDN addresses from the local copies and refuses every other address. Whatever goes
// wrong on the page is collected in `trouble`.
async function openOffline(file) {
  // Captions are hidden below Bootstrap's md breakpoint.
  const page = await browser.newPage({ viewport: { width: 1280, height: 900 } });
  const trouble = [];
  page.on('console', (line) => line.type() === 'error' && trouble.push(`console: ${line.text()}`));
  page.on('pageerror', (error) => trouble.push(`page error: ${error.message}`));
  page.on('requestfailed', (request) => trouble.push(`request failed: ${request.url()}`));
  await page.route('**/*', (route) => {
    const url = route.request().url();
    if (url.startsWith('file:')) return route.continue();
    if (!cdnFiles[url]) return trouble.push(`refused: ${url}`) && route.abort();
    return route.fulfill({
      contentType: url.endsWith('.css') ? 'text/css' : 'application/javascript',
      headers: { 'Access-Control-Allow-Origin': '*' },
      body: fs.readFileSync(path.join(here, 'node_modules', cdnFiles[url])),
    });
  });
  await page.goto(pathToFileURL(path.join(galleryDir, file)).href);
  return { page, trouble };
}

// What a visitor sees: the titles, every slide's picture (each has a width of its own, so it
// tells the file) and caption, and of the carousel the slides and indicators that are active or
// shown, the caption on show and the picture's margins.
const seen = (page) => page.evaluate(() => {
  const style = (element) => getComputedStyle(element);
  const text = (element) => ({ text: element.textContent, colour: style(element).color });
  const items = [...document.querySelectorAll('#simpleCarousel .carousel-item')];
  const indicators = [...document.querySelectorAll('#simpleCarousel .carousel-indicators li')];
  const which = (list, holds) => list.flatMap((element, i) => (holds(element) ? [i] : []));
  const isActive = (element) => element.classList.contains('active');
  // The first slide carries an extra caption ahead of its image; the slide's own is the last.
  const captionOf = (slide) => [...slide.querySelectorAll('.carousel-caption')].pop();
  const active = items.find(isActive);
  const heading = captionOf(active).querySelector('h5');
  const picture = active.querySelector('img').getBoundingClientRect();
  return {
    look: {
      htmlTitle: document.title,
      background: style(document.body).backgroundColor,
      title: text(document.querySelector('h1.display-4')),
      subtitle: text(document.querySelector('p.h4')),
      pictures: items.map((slide) => {
        const img = slide.querySelector('img');
        const [width, height, caption] = [img.naturalWidth, img.naturalHeight, captionOf(slide)];
        return { address: img.getAttribute('src'), width, height, caption: caption.textContent };
      }),
      controls: document.querySelectorAll('#simpleCarousel a[class^=carousel-control]').length,
      scripted: window.scripted ?? false,
      libraries: [jQuery.fn.jquery.split(' ')[0], typeof Popper, typeof jQuery.fn.carousel],
    },
    carousel: {
      active: which(items, isActive),
      shown: which(items, (item) => style(item).display !== 'none'),
      indicators: which(indicators, isActive),
      caption: {
        ...text(heading),
        visible: style(captionOf(active)).display !== 'none' && heading.offsetHeight > 0,
      },
    },
    margins: [picture.left, document.documentElement.clientWidth - picture.right].map(Math.round),
  };
});

// While slides move, Bootstrap marks both carousel-item-next, -prev, -left or -right.
const settled = (i) =>
  document.querySelectorAll('#simpleCarousel .carousel-item')[i].classList.contains('active') &&
  !document.querySelector('[class*="carousel-item-"]');

for (const { file, fullWidth } of gallery.pages) {
  test(`${file} works offline in Chromium`, { timeout: 45000 }, async () => {
    const { page, trouble } = await openOffline(file);
    try {
      assert.deepEqual(trouble, []);
      // Titles, captions and file names hold markup, quotes, escapes and names that are not
      // UTF-8: each slide still shows its own file and the text as typed, and nothing typed runs
      // or breaks the carousel.
      assert.deepEqual((await seen(page)).look, {
        htmlTitle: gallery.htmlTitle,
        background: colours.background.rgb,
        title: { text: gallery.title, colour: colours.titles.rgb },
        subtitle: { text: gallery.subtitle, colour: colours.titles.rgb },
        pictures: images.map(({ address, width, height, caption }) =>
          ({ address, width, height, caption })),
        controls: 2,
        scripted: false,
        libraries: ['3.5.1', 'function', 'function'],
      });
      // The visitor's pointer over the carousel holds its automatic cycling.
      await page.hover('#simpleCarousel');
      for (const { how, click, slide } of gallery.steps) {
        if (click) await page.click(`#simpleCarousel ${click}`);
        await page.waitForFunction(settled, slide, { timeout: 5000 })
          .catch(() => assert.fail(`slide ${slide} did not come up after ${how}`));
        const { carousel, margins } = await seen(page);
        const caption = { text: images[slide].caption, colour: colours.captions.rgb, visible: true };
        const expected = { active: [slide], shown: [slide], indicators: [slide], caption };
        assert.deepEqual(carousel, expected, `slide ${slide} after ${how}`);
        if (fullWidth) assert.deepEqual(margins, [0, 0], 'edge to edge');
        else assert.ok(margins[0] > 0 && Math.abs(margins[0] - margins[1]) <= 1, `${margins}`);
      }
      assert.deepEqual(trouble, []);
    } finally {
      const screenshot = path.join(screenshotDir, `${path.basename(file, '.html')}.png`);
      await page.screenshot({ path: screenshot, fullPage: true });
      await page.close();
    }
  });
}
