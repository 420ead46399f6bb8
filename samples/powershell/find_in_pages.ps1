<#
.SYNOPSIS
  Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.
.DESCRIPTION
  On a desktop with Quillet, the library registered, with the 32-bit PowerShell:

    %SystemRoot%\SysWOW64\WindowsPowerShell\v1.0\powershell.exe -File find_in_pages.ps1 [TEXT [ENTRY]]

  Without arguments: a flight in an availability display of the simulator. The members that collect pages fetch all of
  them; here each page is an entry of its own, MD. An error goes to standard error, and the status is 1.
#>
param([string] $Text = 'AF 123', [string] $Entry = 'AN20JUNNCEPAR')
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'

# Sends an entry, waits for the host's answer and cuts it into rows: it is one text of rows of the screen's width, without
# line breaks.
function Get-Page($Quillet, [string] $Entry) {
  $response = $Quillet.SendCommandNoClear($Entry)
  $columns = $Quillet.LastNumberOfColumns
  if ($columns -lt 1) { $columns = 80 }
  for ($start = 0; $start -lt $response.Length; $start += $columns) {
    $response.Substring($start, [Math]::Min($columns, $response.Length - $start))
  }
}

# The first row that holds the text, without the blanks around it; empty when there is none.
function Get-RowWith([string[]] $Page, [string] $Text) {
  foreach ($row in $Page) {
    if ($row.Contains($Text)) { return $row.Trim(' ') }
  }
  return ''
}

# Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3".
function Test-GoesOn([string[]] $Page) {
  $last = [string] ($Page | Where-Object { $_.Trim(' ') -ne '' } | Select-Object -Last 1)
  if ($last.StartsWith('MORE')) { return $true }
  return $last -match '>(?: *PAGE)? *([0-9]+) */ *([0-9]+) *$' -and [int] $Matches[1] -lt [int] $Matches[2]
}

# The number that the documentation names; any other status is the number itself.
function Get-Number([Exception] $Exception) {
  if (($Exception.HResult -band 0xFFFF0000) -eq 0x800A0000) { $Exception.HResult -band 0xFFFF } else { $Exception.HResult }
}

try {
  $quillet = New-Object -ComObject Wendrill23.CQuillet     # connects to the running session
  "> $Entry"
  $page = @(Get-Page $quillet $Entry)
  $number = 1
  while ((Get-RowWith $page $Text) -eq '' -and (Test-GoesOn $page)) {
    "Page ${number}: not there"
    $page = @(Get-Page $quillet 'MD')
    ++$number
  }
  $row = Get-RowWith $page $Text
  if ($row -eq '') {
    "Page ${number}: not there, and this is the last one"
  } elseif (Test-GoesOn $page) {
    "Page ${number}: $row"
    'The pages after it were not fetched.'
  } else {
    "Page $number, the last one: $row"
  }
} catch {
  $cause = $_.Exception.GetBaseException()
  [Console]::Error.WriteLine("Error $(Get-Number $cause): $($cause.Message)")
  exit 1
}
