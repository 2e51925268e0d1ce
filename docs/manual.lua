-- Makes a page of the manual of a document: its title becomes the NAME, and a table that does not fit
-- a terminal of 80 columns a list, each row's first cell with what the others say of it.

local stringify = pandoc.utils.stringify
local widest = 70

local function columnWidths(tab)
  local widths = {}
  local function see(cells)
    for at, cell in ipairs(cells) do
      widths[at] = math.max(widths[at] or 0, utf8.len(stringify(cell)))
    end
  end
  see(tab.headers)
  for _, row in ipairs(tab.rows) do see(row) end
  return widths
end

local function fits(tab)
  local sum = 0
  for _, width in ipairs(columnWidths(tab)) do sum = sum + width + 3 end
  return sum <= widest
end

-- Of two columns the second one says it; of more each is named.
local function saidOf(tab, row)
  if #row == 2 then return row[2] end
  local said = pandoc.List()
  for at = 2, #row do
    if stringify(row[at]) ~= "" then
      if #said > 0 then said:extend({pandoc.Str(";"), pandoc.Space()}) end
      said:insert(pandoc.Emph(pandoc.utils.blocks_to_inlines(tab.headers[at])))
      said:extend({pandoc.Str(":"), pandoc.Space()})
      said:extend(pandoc.utils.blocks_to_inlines(row[at]))
    end
  end
  return {pandoc.Plain(said)}
end

local function asList(tab)
  local items = pandoc.List()
  for _, row in ipairs(tab.rows) do
    items:insert({pandoc.utils.blocks_to_inlines(row[1]), {saidOf(tab, row)}})
  end
  return pandoc.DefinitionList(items)
end

function Table(element)
  local tab = pandoc.utils.to_simple_table(element)
  if not fits(tab) then return asList(tab) end
  -- The writer takes a width for a part of 70.
  for at, width in ipairs(columnWidths(tab)) do tab.widths[at] = (width + 1) / 70 end
  return pandoc.utils.from_simple_table(tab)
end

function Code(element) return pandoc.Strong(element.text) end

-- A page has nowhere to go to; what is meant is named by the text.
function Link(element) return element.content end

function Pandoc(document)
  local meta = document.meta
  local name = {pandoc.Str(stringify(meta.page) .. " - " .. stringify(meta.summary))}
  local blocks = pandoc.List({pandoc.Header(1, "NAME"), pandoc.Para(name),
                              pandoc.Header(1, "DESCRIPTION")})
  blocks:extend(document.blocks)
  meta.title = stringify(meta.page):upper()
  return pandoc.Pandoc(blocks, meta)
end
