// Opens the written gallery pages from disk in headless Chromium and checks them as a visitor
// sees them, offline: the CDN files are answered from the pinned npm copies (run "npm ci" here),
// and the browser checks each integrity attribute against them. The self-contained page gets no
// CDN at all, and axe-core (pinned here too) checks it.
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

// Answers the CDN addresses from the local copies and refuses every other address; a page that
// is to stand alone gets no CDN either. Whatever goes wrong on the page is collected in `trouble`.
// The self-contained page's timer runs on a clock that the test moves on.
async function openOffline(file, { cdn = true, ...visitor } = {}) {
  // Captions are hidden below Bootstrap's md breakpoint.
  const page = await browser.newPage({ viewport: { width: 1280, height: 900 }, ...visitor });
  const trouble = [];
  page.on('console', (line) => line.type() === 'error' && trouble.push(`console: ${line.text()}`));
  page.on('pageerror', (error) => trouble.push(`page error: ${error.message}`));
  page.on('requestfailed', (request) => trouble.push(`request failed: ${request.url()}`));
  await page.route('**/*', (route) => {
    const url = route.request().url();
    if (url.startsWith('file:')) return route.continue();
    if (!cdn || !cdnFiles[url]) return trouble.push(`refused: ${url}`) && route.abort();
    return route.fulfill({
      contentType: url.endsWith('.css') ? 'text/css' : 'application/javascript',
      headers: { 'Access-Control-Allow-Origin': '*' },
      body: fs.readFileSync(path.join(here, 'node_modules', cdnFiles[url])),
    });
  });
  if (!cdn) await page.clock.install({ time: 0 }).then(() => page.clock.pauseAt(1000));
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

for (const { file, fullWidth } of gallery.pages.filter((page) => !page.selfContained)) {
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

// The self-contained page for a desktop visitor with keyboard and mouse, and on a phone with less
// motion asked for. Each step is what the visitor does (a number: that many ms pass; a selector:
// a click or tap; else a key), then the photo on show as its indicator tells, the pause button's
// word and, after keys, the focused control's name.
const visitors = {
  desktop: [{ viewport: { width: 1280, height: 640 } }, [
    [[3900], 0, 'Pause'], [[100], 1, 'Pause'],
    [['Tab', 'Tab', 'Tab', 'Tab', 9000], 1, 'Pause', 'Photo 1 of 18'],
    [['ArrowRight'], 2, 'Pause', 'Photo 3 of 18'], [['ArrowLeft'], 1, 'Pause', 'Photo 2 of 18'],
    [['.pause', 9000], 1, 'Play'], [['.pause', 4000], 2, 'Pause'], [['.next'], 3, 'Pause'],
    [['.dot >> nth=17'], 17, 'Pause'], [['.next'], 0, 'Pause'],
  ]],
  phone: [{ viewport: { width: 375, height: 812 }, isMobile: true, hasTouch: true,
    reducedMotion: 'reduce' }, [
    [[0], 0, 'Play'], [[9000], 0, 'Play'], [['.pause', 4000], 1, 'Pause'],
    [['.pause', 9000], 1, 'Play'],
  ]],
};
const state = (page) => page.evaluate(() => {
  const focused = document.activeElement;
  return [[...document.querySelectorAll('.dot')].findIndex((dot) => dot.ariaCurrent === 'true'),
    document.querySelector('.pause').textContent, focused.ariaLabel ?? focused.textContent,
    getComputedStyle(focused).outlineStyle];
});
// No slide taller than the window, no sideways scrolling, the caption on show inside the
// window, the carousel centred, and only the first two photos asked for at the opening.
const fit = (page) => page.evaluate(() => {
  const box = (element) => element.getBoundingClientRect();
  const [caption, stage] =
    ['.slide.on figcaption', '.stage'].map((s) => box(document.querySelector(s)));
  const { clientWidth, scrollWidth } = document.documentElement;
  return {
    tallest: Math.max(...[...document.querySelectorAll('.slide')].map((s) => box(s).height)),
    sideways: scrollWidth > clientWidth,
    caption: caption.height > 0 && caption.left >= 0 && caption.right <= clientWidth,
    margins: stage.left > 0 && Math.abs(stage.left - (clientWidth - stage.right)) <= 1,
    asked: [...document.images].flatMap((img, i) => (img.getAttribute('src') ? [i] : [])),
  };
});
const look = (page) => page.evaluate(() => {
  const [one, colour] = [(s) => document.querySelector(s), (s) => getComputedStyle(one(s)).color];
  return {
    title: [document.title, one('h1').textContent, one('header p').textContent],
    colours: [getComputedStyle(document.body).backgroundColor, colour('h1'), colour('header p'),
      colour('figcaption')],
    pictures: [...document.querySelectorAll('.slide')].map((slide) => ({
      width: slide.querySelector('img').naturalWidth, alt: slide.querySelector('img').alt,
      caption: slide.querySelector('figcaption').textContent })),
  };
});

for (const { file } of gallery.pages.filter((page) => page.selfContained)) {
  for (const [who, [visitor, steps]] of Object.entries(visitors)) {
    test(`${file} serves a ${who} visitor offline`, { timeout: 45000 }, async () => {
      const { page, trouble } = await openOffline(file, { cdn: false, ...visitor });
      try {
        // Polling would wait on the stopped clock; the photos' own decoding goes on.
        await page.evaluate(() => document.images[0].decode());
        const { tallest, ...rest } = await fit(page);
        assert.ok(tallest <= visitor.viewport.height, `a slide ${tallest} px tall`);
        assert.deepEqual(rest, { sideways: false, caption: true, margins: true, asked: [0, 1] });
        for (const [actions, slide, word, focused] of steps) {
          for (const action of actions) {
            if (typeof action === 'number') await page.clock.runFor(action);
            else if (!action.startsWith('.')) await page.keyboard.press(action);
            else await (visitor.hasTouch ? page.tap(action) : page.click(action));
          }
          const [shown, pause, name, ring] = await state(page);
          assert.deepEqual([shown, pause], [slide, word], `after ${actions}`);
          if (focused) assert.deepEqual([name, ring], [focused, 'solid'], `focus after ${actions}`);
        }
        // Every photo comes when its slide is shown, and it is the right one.
        await page.$$eval('.dot', (dots) => dots.forEach((dot) => dot.click()));
        await page.evaluate(() => Promise.all([...document.images].map((img) => img.decode())));
        assert.deepEqual(await look(page), {
          title: [gallery.htmlTitle, gallery.title, gallery.subtitle],
          colours: [colours.background, colours.titles, colours.titles, colours.captions]
            .map(({ rgb }) => rgb),
          pictures: images.map(({ width, alt, caption }) =>
            ({ width, alt: alt ?? caption, caption })),
        });
        // axe-core waits on timers of its own.
        await page.clock.resume();
        await page.addScriptTag({ path: path.join(here, 'node_modules/axe-core/axe.min.js') });
        assert.deepEqual((await page.evaluate(() => axe.run())).violations, []);
        assert.deepEqual(trouble, []);
      } finally {
        const name = `${path.basename(file, '.html')}-${who}.png`;
        await page.screenshot({ path: path.join(screenshotDir, name) });
        await page.close();
      }
    });
  }
}
