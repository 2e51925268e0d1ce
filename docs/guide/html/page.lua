-- Makes of a page's Markdown what the template needs: its title, all pages of the guide with the
-- parts of the contents, the neighbours; links between pages, and pictures with their sizes.
-- Asked with -M out=FOLDER -M folders=A:B..., in which the pages are looked for.

local folders, out, name = {}, nil, nil

local function Read(path)
  local file = io.open(path, 'rb')
  if not file then return nil end
  local content = file:read('a')
  file:close()
  return content
end

local function Fail(what)
  io.stderr:write(name .. '.md: ' .. what .. '\n')
  os.exit(1)
end

-- The Markdown of a page, or nothing where it is not there, as what is made by a build.
local function Source(page)
  for _, folder in ipairs(folders) do
    local content = Read(folder .. '/' .. page .. '.md')
    if content then return content end
  end
end

-- Each with `file`, `title` and, where it begins a part, `part`.
local function Pages()
  local pages, part = {}, nil
  for line in (Read(folders[1] .. '/pages.txt') .. '\n'):gmatch('([^\n]*)\n') do
    local page, opens = line:match('^([%w-]+)%s*|?%s*(.*)$')
    if page then
      local source = Source(page)
      part = opens ~= '' and opens or part
      if source then
        table.insert(pages, {file = page, title = source:match('^# ([^\n]*)'), part = part})
        part = nil
      end
    end
  end
  return pages
end

-- Width and height in pixels stand at fixed places of every PNG.
local function SizeOf(png)
  if not png or png:sub(2, 4) ~= 'PNG' then return nil end
  return string.unpack('>I4I4', png, 17)
end

local function Copy(picture)
  local content = Read(folders[2] .. '/' .. picture)
  if not content then return nil end
  local file = assert(io.open(out .. '/' .. picture, 'wb'))
  file:write(content)
  file:close()
  return content
end

local function Image(image)
  local picture = image.src:match('pictures/.+$')
  if not picture then Fail('a picture that is none of docs/pictures: ' .. image.src) end
  local width, height = SizeOf(Copy(picture))
  if not width then Fail('no such picture: ' .. image.src) end
  image.src = picture
  image.attributes.width = tostring(width)
  image.attributes.height = tostring(height)
  local sharp = picture:gsub('/100/', '/200/')
  if sharp ~= picture and Copy(sharp) then
    image.attributes.srcset = picture .. ' 1x, ' .. sharp .. ' 2x'
  end
  return image
end

local function Link(link)
  link.target = link.target:gsub('^[^:#]-([%w-]+)%.md', '%1.html')
  return link
end

-- A table wider than the page scrolls by itself.
local function Table(table)
  return pandoc.Div(table, {class = 'wide'})
end

-- The first heading becomes the title, which the template places.
local function TakeTitle(doc)
  local heading = table.remove(doc.blocks, 1)
  if not heading or heading.t ~= 'Header' or heading.level ~= 1 then Fail('it has no title') end
  doc.meta.title = pandoc.MetaInlines(heading.content)
  doc.meta.titleid = heading.identifier
  doc.meta.pagetitle = pandoc.utils.stringify(heading.content)
end

local function Contents(doc)
  local pages = Pages()
  for at, page in ipairs(pages) do
    if page.file == name then
      page.current = true
      doc.meta.previous = pages[at - 1]
      doc.meta.next = pages[at + 1]
    end
  end
  doc.meta.pages = pages
end

function Pandoc(doc)
  name = PANDOC_STATE.input_files[1]:match('([^/]+)%.md$')
  out = pandoc.utils.stringify(doc.meta.out)
  for folder in pandoc.utils.stringify(doc.meta.folders):gmatch('[^:]+') do
    table.insert(folders, folder)
  end
  TakeTitle(doc)
  Contents(doc)
  doc.blocks = pandoc.walk_block(pandoc.Div(doc.blocks),
                                 {Image = Image, Link = Link, Table = Table}).content
  return doc
end
