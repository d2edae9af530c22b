// Lighthouse in mobile mode for both kinds of gallery page on 30 web-ready photos, served from
// 127.0.0.1: prints the performance, accessibility and best-practices scores (the median of three
// runs), the largest contentful paint and the bytes of the opening, and the self-contained page's
// size. The default page's CDN files are answered on 127.0.0.1 too, from the browser test's
// pinned copies, through a local HTTPS server that Chromium is pointed at. Not a test.
//   cmake --build build --target lighthouse_pages && (cd bench && npm ci) &&
//   (cd tests/browser && npm ci) && node bench/lighthouse.mjs [BUILD_DIR]
import { execFile, execFileSync } from 'node:child_process';
import fs from 'node:fs';
import http from 'node:http';
import https from 'node:https';
import os from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';

const here = path.dirname(fileURLToPath(import.meta.url));
const root = path.dirname(here);
const build = path.resolve(process.argv[2] ?? path.join(root, 'build'));
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'velmora-lighthouse-'));
const runs = 3;

const sizes = execFileSync(path.join(build, 'bench', 'lighthouse_pages'), [folder]).toString();
const types = { '.html': 'text/html; charset=utf-8', '.jpg': 'image/jpeg', '.css': 'text/css',
  '.js': 'application/javascript' };
const answer = (file, response) => fs.readFile(file, (error, body) => {
  if (error) return response.writeHead(404).end();
  response.writeHead(200, { 'Content-Type': types[path.extname(file)] ?? 'application/octet-stream',
    'Access-Control-Allow-Origin': '*', 'Cache-Control': 'max-age=3600' }).end(body);
});
const listen = (server) => new Promise((done) =>
  server.listen(0, '127.0.0.1', () => done(server.address().port)));

// The photos and pages.
const site = http.createServer((request, response) =>
  answer(path.join(folder, decodeURIComponent(new URL(request.url, 'http://x').pathname)), response));
// The CDN files, from the pinned npm copies that the browser test uses as well.
const { cdnFiles } = JSON.parse(fs.readFileSync(path.join(root, 'tests/browser/gallery.json')));
const key = path.join(folder, 'cdn.key');
const cert = path.join(folder, 'cdn.crt');
execFileSync('openssl', ['req', '-x509', '-newkey', 'rsa:2048', '-nodes', '-days', '1',
  '-subj', '/CN=cdn', '-keyout', key, '-out', cert], { stdio: 'ignore' });
const cdn = https.createServer({ key: fs.readFileSync(key), cert: fs.readFileSync(cert) },
  (request, response) => {
    const file = cdnFiles[`https://${request.headers.host}${request.url}`];
    answer(path.join(root, 'tests/browser/node_modules', file ?? 'none'), response);
  });
const [sitePort, cdnPort] = [await listen(site), await listen(cdn)];
const hosts = [...new Set(Object.keys(cdnFiles).map((url) => new URL(url).host))];
const chromeFlags = ['--headless=new', '--no-sandbox', '--ignore-certificate-errors',
  `--host-resolver-rules=${hosts.map((host) => `MAP ${host}:443 127.0.0.1:${cdnPort}`).join(',')}`,
  '--disable-background-networking'];

const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];
// Run while this process serves the pages, so not in a blocking call.
const lighthouse = async (page) => {
  const report = path.join(folder, `${page}.json`);
  await promisify(execFile)(path.join(here, 'node_modules/.bin/lighthouse'), [
    `http://127.0.0.1:${sitePort}/${page}`, '--quiet', '--output=json', `--output-path=${report}`,
    '--only-categories=performance,accessibility,best-practices',
    `--chrome-flags=${chromeFlags.join(' ')}`,
  ], { env: { ...process.env, CHROME_PATH: process.env.CHROME_PATH ?? '/usr/bin/chromium' } });
  return JSON.parse(fs.readFileSync(report, 'utf8'));
};

try {
  for (const [kind, page] of [['default', 'gallery.html'], ['self-contained', 'self-contained.html']]) {
    const reports = [];
    for (let run = 0; run < runs; ++run) reports.push(await lighthouse(page));
    const score = (name) => median(reports.map((r) => Math.round(r.categories[name].score * 100)));
    const audit = (name) => median(reports.map((r) => r.audits[name].numericValue));
    const failed = new Set(reports.flatMap((r) => Object.values(r.categories)
      .flatMap((category) => category.auditRefs)
      .filter(({ id, weight }) => weight > 0 && r.audits[id].score !== null && r.audits[id].score < 1)
      .map(({ id }) => id)));
    console.log(`${kind.padEnd(15)} performance ${score('performance')}, accessibility ` +
      `${score('accessibility')}, best practices ${score('best-practices')}; LCP ` +
      `${(audit('largest-contentful-paint') / 1000).toFixed(1)} s, opening ` +
      `${(audit('total-byte-weight') / 1024).toFixed(0)} KiB` +
      (failed.size ? `; short of full marks: ${[...failed].join(', ')}` : ''));
  }
  process.stdout.write(sizes);
} finally {
  site.close();
  cdn.close();
  fs.rmSync(folder, { recursive: true, force: true });
}
