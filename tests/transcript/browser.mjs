// A browser without a window, and pages of traces to open in it.
import { execFileSync } from "node:child_process";
import { existsSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

const installed = ["chromium", "chromium-browser", "google-chrome"].map((name) => `/usr/bin/${name}`).find(existsSync);

// The browser and the pages' folder, both gone after close(). `modules` is the folder of node_modules.
export async function startBrowser(wendrill, modules) {
  if (!installed) throw new Error("there is no browser");
  const require = createRequire(pathToFileURL(join(modules, "package.json")));
  const { chromium } = require("playwright-core");
  const browser = await chromium.launch({ executablePath: installed, args: ["--no-sandbox"] });
  const folder = mkdtempSync(join(tmpdir(), "transcript-"));
  let pages = 0;
  return {
    browser,
    axe: require.resolve("axe-core/axe.min.js"),

    // The address of the page that wendrill makes of a trace.
    pageOf(trace) {
      const file = join(folder, `${++pages}.html`);
      const most = 1 << 30;
      writeFileSync(file, execFileSync(wendrill, ["transcript"], { input: trace, maxBuffer: most }));
      return pathToFileURL(file).href;
    },

    async close() {
      await browser.close();
      rmSync(folder, { recursive: true });
    },
  };
}
