// Makes the pictures of docs/transcript.md.
//
//   node pictures.mjs WENDRILL MODULES FOLDER
//
// MODULES is the folder of node_modules; FOLDER gets transcript-light.png and transcript-dark.png.
import { join } from "node:path";

import { startBrowser } from "./browser.mjs";
import { agencyTrace } from "./traces.mjs";

const [, , wendrill, modules, folder] = process.argv;
const world = await startBrowser(wendrill, modules);
const address = world.pageOf(agencyTrace());
for (const colorScheme of ["light", "dark"]) {
  const page = await world.browser.newPage({ viewport: { width: 1280, height: 760 }, colorScheme });
  await page.goto(`${address}#n=12`);
  await page.screenshot({ path: join(folder, `transcript-${colorScheme}.png`) });
}
await world.close();
